// The log back ends. Each records every field of an entry and reports a
// failed write by its errno value.
#pragma once

#include <memory>
#include <string>

#include "eventLog/event_log.h"

namespace varnock::eventLog {

std::shared_ptr<Backend> makeSyslogBackend();
std::shared_ptr<Backend> makeFileBackend(std::string path);
std::shared_ptr<Backend> makeStderrBackend();
// nullptr in a build without the systemd journal.
std::shared_ptr<Backend> makeJournalBackend();

// One entry as a JSON object on one line, ending in "\n":
// {"time":"2026-11-22T19:46:00Z","type":1,"category":0,"id":94,"source":"...","message":"..."}
std::string jsonLine(const Entry& entry);

}  // namespace varnock::eventLog
