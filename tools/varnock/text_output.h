// SPDX-License-Identifier: MIT
// The readable form of a call's outcome: the result (True/False, numbers,
// text, Null, Empty); a record or Dictionary as "name  value" lines; a
// collection as a table with a header row of field names and a row count;
// the loaded object's columns; changed by-reference arguments as
// 'name = "value"'; refused --set values; and the last error message.
#pragma once

#include <ostream>
#include <string>

#include "call_outcome.h"

namespace varnock::cli {

// A value on one line: Null, Empty, Nothing, True/False, numbers and dates in
// their ordinary text form, text with control characters escaped.
std::string displayText(const Variant& value);

void writeText(std::ostream& out, const CallOutcome& outcome);

}  // namespace varnock::cli
