// SPDX-License-Identifier: MIT
// JSON Lines for the logs that users switch on (event log file, SQL trace):
// string escaping and a UTC timestamp. The lines are appended by
// platform::appendLine.
#pragma once

#include <string>
#include <string_view>

namespace varnock::jsonLines {

// Appends `text` as a JSON string literal, quotes included; bytes that are
// not well-formed UTF-8 are written as U+FFFD so the line stays valid JSON.
void appendString(std::string& out, std::string_view text);

// Now, as "2026-11-22T19:46:00.123Z".
std::string utcTimestamp();

}  // namespace varnock::jsonLines
