// SPDX-License-Identifier: MIT
// "varnock call": creates the object, assigns the --set values, makes the
// call late-bound and gathers what it came to.
#pragma once

#include <istream>

#include "call_outcome.h"
#include "command_line.h"

namespace varnock::cli {

// Raises UsageError for an unknown class, member or column and for bad value
// notation; AutomationError as the object raises it. Values written "@-" are
// read from standardInput.
CallOutcome runCall(const CallRequest& request, std::istream& standardInput);

}  // namespace varnock::cli
