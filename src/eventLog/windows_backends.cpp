// SPDX-License-Identifier: MIT
// The system log of Windows: the event log of the local computer, written
// as the platform's event log writer writes it.
#include "eventLog/backends.h"
#include "platform/windows_event_log.h"

namespace varnock::eventLog {

namespace {

class WindowsEventLog final : public Backend {
 public:
  int write(const Entry& entry) override {
    return platform::reportEvent(entry.type, entry.category, static_cast<std::uint32_t>(entry.id),
                                 std::string(entry.source), std::string(entry.message));
  }
  std::string describe() const override { return "eventlog"; }
};

}  // namespace

const char* const kSystemBackendNames = "eventlog";

bool isSystemBackendName(std::string_view setting) {
  return setting == "eventlog";
}

std::shared_ptr<Backend> makeSystemBackend(std::string_view setting) {
  if (setting == "eventlog") return std::make_shared<WindowsEventLog>();
  return nullptr;
}

std::shared_ptr<Backend> makeDefaultBackend() {
  return std::make_shared<WindowsEventLog>();
}

}  // namespace varnock::eventLog
