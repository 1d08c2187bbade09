// SPDX-License-Identifier: MIT
#include "varnock/automation_error.h"

#include <utility>

namespace varnock {

namespace {

const char* standardDescription(std::int32_t number) {
  switch (number) {
    case AutomationError::kInvalidProcedureCall:
      return "Invalid procedure call or argument";
    case AutomationError::kOverflow:
      return "Overflow";
    case AutomationError::kTypeMismatch:
      return "Type mismatch";
    case AutomationError::kInvalidUseOfNull:
      return "Invalid use of Null";
    default:
      return "Application-defined or object-defined error";
  }
}

}  // namespace

AutomationError::AutomationError(std::int32_t number, std::string description, std::string source)
    : number_(number), description_(std::move(description)), source_(std::move(source)) {}

AutomationError::AutomationError(std::int32_t number, std::string description, std::string source,
                                 std::string sqlState, std::int32_t nativeError)
    : number_(number),
      description_(std::move(description)),
      source_(std::move(source)),
      sqlState_(std::move(sqlState)),
      nativeError_(nativeError) {}

AutomationError AutomationError::runtime(std::int32_t number) {
  return AutomationError(number, standardDescription(number), kRuntimeSource);
}

}  // namespace varnock
