// Small text helpers of the command line tool.
#pragma once

#include <string>
#include <string_view>

namespace varnock::cli {

// ASCII letters compared without regard to case, everything else exactly.
bool equalsIgnoringCase(std::string_view a, std::string_view b);

// The text with control characters written as escapes (\n, \t, \x01), so a
// value always stays on one line of output.
std::string oneLine(std::string_view text);

// The text in double quotes, with quotes and backslashes escaped as well.
std::string inQuotes(std::string_view text);

// The number of characters a UTF-8 text shows, for aligning columns.
std::size_t displayWidth(std::string_view text);

}  // namespace varnock::cli
