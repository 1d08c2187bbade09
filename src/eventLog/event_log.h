// SPDX-License-Identifier: MIT
// The error reporter and the event log writer that every failure goes
// through, over an exchangeable log back end. Stateless apart from the chosen
// back end, which is shared by the whole process and guarded.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace varnock::eventLog {

constexpr std::uint16_t kErrorType = 1;
constexpr std::uint16_t kWarningType = 2;
constexpr std::uint16_t kInformationType = 4;

// The fields of one entry, as the writer hands them to a back end.
struct Entry {
  std::uint16_t type;
  std::uint16_t category;
  std::int32_t id;
  std::string_view source;
  std::string_view message;
};

// A place entries go to. write() returns 0 when the entry was recorded, or
// the system error code (an errno value) that made it fail.
class Backend {
 public:
  virtual ~Backend() = default;
  virtual int write(const Entry& entry) = 0;
  // The setEventLog notation of this back end ("file:/var/log/x.jsonl").
  virtual std::string describe() const = 0;
};

// Writes one entry with category 0. A failed write raises AutomationError
// number 0x80040000 + the system code, source "Event Log Component",
// description "ReportEvent() failed".
void WriteEventLog(std::int16_t eventType, std::int32_t eventId, std::string_view source,
                   std::string_view message);

// Writes one error entry: identifier `number`, source `method`, text "\r\n"
// followed by `message`. Raises what WriteEventLog raises.
void ReportDataError(std::int32_t number, std::string_view method, std::string_view message);

// Replaces the process's back end (tests install an in-memory one).
void setBackend(std::shared_ptr<Backend> backend);
std::shared_ptr<Backend> currentBackend();

// Makes the back end that a setEventLog notation names; raises error 5 for a
// notation it does not know.
std::shared_ptr<Backend> makeBackend(std::string_view setting);

}  // namespace varnock::eventLog
