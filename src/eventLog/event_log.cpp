// SPDX-License-Identifier: MIT
#include "eventLog/event_log.h"

#include <cstdlib>
#include <limits>
#include <mutex>
#include <string>

#include "eventLog/backends.h"
#include "varnock/automation_error.h"
#include "varnock/event_log.h"

namespace varnock::eventLog {

namespace {

constexpr std::int32_t kObjectErrorBase = static_cast<std::int32_t>(0x80040000u);
constexpr const char* kWriterSource = "Event Log Component";
constexpr const char* kWriteFailed = "ReportEvent() failed";
constexpr const char* kEnvironmentVariable = "VARNOCK_EVENT_LOG";

std::mutex& backendMutex() {
  static std::mutex m;
  return m;
}

std::shared_ptr<Backend>& installedBackend() {
  static std::shared_ptr<Backend> backend;
  return backend;
}

[[noreturn]] void invalidSetting(std::string_view setting, std::string_view why) {
  throw AutomationError(AutomationError::kInvalidProcedureCall,
                        "Event log back end '" + std::string(setting) + "' " + std::string(why) +
                            "; expected " + kSystemBackendNames + ", file:PATH or stderr",
                        "Event Log Component");
}

}  // namespace

std::shared_ptr<Backend> makeBackend(std::string_view setting) {
  if (setting == "stderr") return makeStderrBackend();
  if (auto system = makeSystemBackend(setting)) return system;
  if (isSystemBackendName(setting)) invalidSetting(setting, "is not available in this build");
  if (setting.starts_with("file:")) {
    if (setting.size() == 5) invalidSetting(setting, "names no file");
    return makeFileBackend(std::string(setting.substr(5)));
  }
  invalidSetting(setting, "is unknown");
}

void setBackend(std::shared_ptr<Backend> backend) {
  std::lock_guard lock(backendMutex());
  installedBackend() = std::move(backend);
}

std::shared_ptr<Backend> currentBackend() {
  std::lock_guard lock(backendMutex());
  std::shared_ptr<Backend>& backend = installedBackend();
  if (!backend) {
    const char* setting = std::getenv(kEnvironmentVariable);
    // A wrong setting is reported on every write rather than silently
    // replaced, so that no entry goes somewhere the user did not ask for.
    if (setting != nullptr && *setting != '\0') {
      backend = makeBackend(setting);
    } else {
      backend = makeDefaultBackend();
    }
  }
  return backend;
}

void WriteEventLog(std::int16_t eventType, std::int32_t eventId, std::string_view source,
                   std::string_view message) {
  // The entry's text is copied with its terminating zero: its length plus one
  // must fit a signed 32-bit count.
  if (message.size() >= static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())) {
    throw AutomationError::runtime(AutomationError::kOverflow);
  }
  const std::shared_ptr<Backend> backend = currentBackend();
  const Entry entry{static_cast<std::uint16_t>(eventType), 0, eventId, source, message};
  if (const int code = backend->write(entry); code != 0) {
    const std::int64_t number = std::int64_t{kObjectErrorBase} + code;
    if (number < std::numeric_limits<std::int32_t>::min() ||
        number > std::numeric_limits<std::int32_t>::max()) {
      throw AutomationError::runtime(AutomationError::kOverflow);
    }
    throw AutomationError(static_cast<std::int32_t>(number), kWriteFailed, kWriterSource);
  }
}

void ReportDataError(std::int32_t number, std::string_view method, std::string_view message) {
  std::string text;
  text.reserve(message.size() + 2);
  text.append("\r\n").append(message);
  WriteEventLog(static_cast<std::int16_t>(kErrorType), number, method, text);
}

}  // namespace varnock::eventLog

namespace varnock {

void setEventLog(std::string_view setting) {
  eventLog::setBackend(eventLog::makeBackend(setting));
}

std::string currentEventLog() {
  return eventLog::currentBackend()->describe();
}

}  // namespace varnock
