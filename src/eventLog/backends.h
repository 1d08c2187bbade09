// SPDX-License-Identifier: MIT
// The log back ends. Each records every field of an entry and reports a
// failed write by its errno value.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "eventLog/event_log.h"

namespace varnock::eventLog {

// The system's own logs, by their setEventLog names: "syslog" and "journal"
// on Linux, "eventlog" (the Windows event log) on Windows. nullptr for
// another name, or for a log this build cannot write to.
std::shared_ptr<Backend> makeSystemBackend(std::string_view setting);
bool isSystemBackendName(std::string_view setting);
// "syslog, journal" or "eventlog", for messages.
extern const char* const kSystemBackendNames;
// Where entries go without a setting.
std::shared_ptr<Backend> makeDefaultBackend();

// The local syslog daemon's socket.
inline constexpr const char* kSyslogSocket = "/dev/log";
std::shared_ptr<Backend> makeSyslogBackend(std::string socketPath = kSyslogSocket);
// Whether a syslog daemon's socket is there to write to.
bool syslogListens(const std::string& socketPath = kSyslogSocket);
std::shared_ptr<Backend> makeFileBackend(std::string path);
std::shared_ptr<Backend> makeStderrBackend();
// The journal's socket; an entry sent while it is missing is a failed write.
inline constexpr const char* kJournalSocket = "/run/systemd/journal/socket";
// nullptr in a build without the systemd journal.
std::shared_ptr<Backend> makeJournalBackend(std::string socketPath = kJournalSocket);

// One entry as a JSON object on one line, ending in "\n":
// {"time":"2026-11-22T19:46:00Z","type":1,"category":0,"id":94,"source":"...","message":"..."}
std::string jsonLine(const Entry& entry);

}  // namespace varnock::eventLog
