// SPDX-License-Identifier: MIT
// The systemd journal back end: one structured field per entry field.
#include "eventLog/backends.h"

#ifdef VARNOCK_HAVE_JOURNAL
#include <syslog.h>
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#endif

namespace varnock::eventLog {

#ifdef VARNOCK_HAVE_JOURNAL
namespace {

class JournalBackend final : public Backend {
 public:
  explicit JournalBackend(std::string socketPath) : socketPath_(std::move(socketPath)) {}
  int write(const Entry& entry) override {
    // sd_journal_send reports success when no journal listens; such an
    // entry would be lost, so it is a failed write here.
    if (::access(socketPath_.c_str(), W_OK) != 0) return errno;
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

 private:
  std::string socketPath_;
};

}  // namespace

std::shared_ptr<Backend> makeJournalBackend(std::string socketPath) {
  return std::make_shared<JournalBackend>(std::move(socketPath));
}
#else
std::shared_ptr<Backend> makeJournalBackend(std::string) {
  return nullptr;
}
#endif

}  // namespace varnock::eventLog
