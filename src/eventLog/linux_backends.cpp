// SPDX-License-Identifier: MIT
// The system logs of Linux: syslog and the systemd journal.
#include "eventLog/backends.h"

namespace varnock::eventLog {

const char* const kSystemBackendNames = "syslog, journal";

bool isSystemBackendName(std::string_view setting) {
  return setting == "syslog" || setting == "journal";
}

std::shared_ptr<Backend> makeSystemBackend(std::string_view setting) {
  if (setting == "syslog") return makeSyslogBackend();
  if (setting == "journal") return makeJournalBackend();
  return nullptr;
}

std::shared_ptr<Backend> makeDefaultBackend() {
  // Entries go to syslog where a daemon listens, and are never lost where
  // none does (a container): they go to standard error instead.
  return syslogListens() ? makeSyslogBackend() : makeStderrBackend();
}

}  // namespace varnock::eventLog
