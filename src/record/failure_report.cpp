// SPDX-License-Identifier: MIT
#include "record/failure_report.h"

#include <string>

#include "eventLog/event_log.h"
#include "record/record_internal.h"

namespace varnock {

namespace {

constexpr std::int32_t kUnspecifiedFailure = static_cast<std::int32_t>(0x80004005u);

}  // namespace

void reportFailure(Record& record, std::string_view methodName, const AutomationError& failure,
                   std::optional<std::string_view> statement) {
  RecordInternal::setLastErrorMessage(record, failure.description());
  std::string message = failure.description();
  message.append(" [").append(failure.source()).append("]");
  if (statement) message.append(" \r\nSQL = ").append(*statement);
  eventLog::ReportDataError(failure.number(), methodName, message);
}

AutomationError asAutomationError(const std::exception& failure) {
  if (const auto* automation = dynamic_cast<const AutomationError*>(&failure)) return *automation;
  return AutomationError(kUnspecifiedFailure, failure.what(), AutomationError::kRuntimeSource);
}

}  // namespace varnock
