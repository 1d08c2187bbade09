// SPDX-License-Identifier: MIT
// The --json form of a call's outcome, one object on one line:
//   {"result": R, "object": {COLUMN: V, ...} | null, "byref": {NAME: V, ...},
//    "lastError": "...", "refused": [{"column": C, "value": V, "message": M}]}
// "refused" appears only when --set values were refused, and "result" is null
// then. Values: Null is null, Empty is {"empty": true}, booleans and numbers
// are JSON's own (currency as a decimal number), dates are ISO strings
// "2000-05-04T13:45:00", text is a string (invalid UTF-8 bytes become U+FFFD),
// a record object or Dictionary is an object, a collection an array, and an
// object reference to nothing (Nothing) is null.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>

#include "call_outcome.h"
#include "varnock/automation_error.h"

namespace varnock::cli {

std::string jsonValue(const Variant& value);
std::string jsonString(std::string_view text);

void writeJson(std::ostream& out, const CallOutcome& outcome);

// {"error": {"number": N, "hex": "0x...", "description": "...", "source": "..."}}
void writeJsonError(std::ostream& out, const AutomationError& error);

}  // namespace varnock::cli
