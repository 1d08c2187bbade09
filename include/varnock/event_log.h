// SPDX-License-Identifier: MIT
// Where Varnock writes its event log entries. Every refused value, unknown
// property name and failed data method (but CountEvery<T>, which raises
// instead) writes one error entry (type, category, identifier, source and
// message). The back end is chosen by VARNOCK_EVENT_LOG when the first entry
// is written (or currentEventLog first asks), or at any time by setEventLog:
//   "syslog"     the local syslog daemon (/dev/log), ident = the event source
//   "journal"    the systemd journal, one field per entry field
//   "file:PATH"  JSON Lines appended to PATH (created owner-only), one object
//                per entry
//   "stderr"     JSON Lines on standard error
// Without a setting, entries go to syslog when a daemon listens on /dev/log,
// and to standard error when none does. A VARNOCK_EVENT_LOG that names no
// back end is never replaced by the default: every write raises
// AutomationError 5 until setEventLog chooses. Every entry is delivered or its
// write fails and raises (no daemon, no journal, a full disk, a FIFO without a
// reader); no write waits for long. Thread-safe; the choice applies to the
// whole process.
#pragma once

#include <string>
#include <string_view>

#include "varnock/export.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

// Selects the back end. An unknown name raises AutomationError 5, and so
// does "journal" in a build without the systemd journal.
void setEventLog(std::string_view setting);

// The back end in use, in the notation setEventLog takes. Before any has been
// chosen, chooses one as the first entry would (and raises as it would).
std::string currentEventLog();

}  // namespace varnock
VARNOCK_PUBLIC_END
