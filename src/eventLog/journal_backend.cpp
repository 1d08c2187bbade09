// The systemd journal back end: one structured field per entry field.
#include "eventLog/backends.h"

#ifdef VARNOCK_HAVE_JOURNAL
#include <syslog.h>
#include <systemd/sd-journal.h>

#include <string>
#endif

namespace varnock::eventLog {

#ifdef VARNOCK_HAVE_JOURNAL
namespace {

class JournalBackend final : public Backend {
 public:
  int write(const Entry& entry) override {
    const std::string source(entry.source);
    const std::string message(entry.message);
    const int priority = entry.type == kErrorType     ? LOG_ERR
                         : entry.type == kWarningType ? LOG_WARNING
                                                      : LOG_INFO;
    const int result = sd_journal_send(
        "MESSAGE=%s", message.c_str(), "PRIORITY=%d", priority, "SYSLOG_IDENTIFIER=%s",
        source.c_str(), "VARNOCK_EVENT_SOURCE=%s", source.c_str(), "VARNOCK_EVENT_TYPE=%u",
        static_cast<unsigned>(entry.type), "VARNOCK_EVENT_CATEGORY=%u",
        static_cast<unsigned>(entry.category), "VARNOCK_EVENT_ID=%d", entry.id, nullptr);
    return result < 0 ? -result : 0;
  }
  std::string describe() const override { return "journal"; }
};

}  // namespace

std::shared_ptr<Backend> makeJournalBackend() {
  return std::make_shared<JournalBackend>();
}
#else
std::shared_ptr<Backend> makeJournalBackend() {
  return nullptr;
}
#endif

}  // namespace varnock::eventLog
