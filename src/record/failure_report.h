// SPDX-License-Identifier: MIT
// How a trapped failure is reported, once for every method that traps one:
// the description becomes the record's last error message, and one error
// event is written under the method's name whose text is the description,
// " [", the failure's source and "]", followed, for the methods that run a
// statement, by " " + "\r\n" + "SQL = " and the statement as built so far.
#pragma once

#include <exception>
#include <optional>
#include <string_view>

#include "varnock/automation_error.h"
#include "varnock/record.h"

namespace varnock {

// Raises only what the event log writer raises.
void reportFailure(Record& record, std::string_view methodName, const AutomationError& failure,
                   std::optional<std::string_view> statement = std::nullopt);

// Any failure as the automation error it is reported as: an AutomationError
// as it is, anything else as 0x80004005 with its text.
AutomationError asAutomationError(const std::exception& failure);

}  // namespace varnock
