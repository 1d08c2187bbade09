// SPDX-License-Identifier: MIT
// How raised errors are reported on standard error.
#pragma once

#include <cstdint>
#include <string>

#include "varnock/automation_error.h"

namespace varnock::cli {

// The number as its unsigned 32-bit pattern: "0x80020006", "0x000001AD".
std::string hexNumber(std::int32_t number);

// "error 0x000001AD (429): DESCRIPTION [source: SOURCE]"
std::string describe(const AutomationError& error);

}  // namespace varnock::cli
