// The syslog back end: ident = the event source, priority from the event
// type, and the identifier, type and category in the text. syslog(3) reports
// no failure, so this back end never raises.
#include <syslog.h>

#include <mutex>
#include <string>

#include "eventLog/backends.h"

namespace varnock::eventLog {

namespace {

int priorityOf(std::uint16_t type) {
  switch (type) {
    case kErrorType:
      return LOG_ERR;
    case kWarningType:
      return LOG_WARNING;
    default:
      return LOG_INFO;
  }
}

class SyslogBackend final : public Backend {
 public:
  int write(const Entry& entry) override {
    const std::string ident(entry.source);
    const std::string message(entry.message);
    // openlog keeps the ident of the whole process: one entry at a time.
    static std::mutex mutex;
    std::lock_guard lock(mutex);
    ::openlog(ident.c_str(), LOG_PID, LOG_USER);
    ::syslog(priorityOf(entry.type), "event %d type %u category %u: %s", entry.id,
             static_cast<unsigned>(entry.type), static_cast<unsigned>(entry.category),
             message.c_str());
    ::closelog();
    return 0;
  }
  std::string describe() const override { return "syslog"; }
};

}  // namespace

std::shared_ptr<Backend> makeSyslogBackend() {
  return std::make_shared<SyslogBackend>();
}

}  // namespace varnock::eventLog
