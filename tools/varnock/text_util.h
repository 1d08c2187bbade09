// SPDX-License-Identifier: MIT
// Small text helpers of the command line tool.
#pragma once

#include <string>
#include <string_view>

#include "varnock/conversions.h"

namespace varnock::cli {

using varnock::equalsIgnoringCase;

// The text with control characters written as escapes (\n, \t, \x01), so a
// value always stays on one line of output.
std::string oneLine(std::string_view text);

// The text in double quotes, with quotes and backslashes escaped as well.
std::string inQuotes(std::string_view text);

// The number of characters a UTF-8 text shows, for aligning columns.
std::size_t displayWidth(std::string_view text);

}  // namespace varnock::cli
