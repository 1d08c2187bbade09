// SPDX-License-Identifier: MIT
// JSON Lines for the logs that users switch on (event log file, SQL trace):
// string escaping, a UTC timestamp, and appending one whole line with a
// single write so that concurrent writers never interleave.
#pragma once

#include <string>
#include <string_view>

namespace varnock::jsonLines {

// Appends `text` as a JSON string literal, quotes included; bytes that are
// not well-formed UTF-8 are written as U+FFFD so the line stays valid JSON.
void appendString(std::string& out, std::string_view text);

// Now, as "2026-11-22T19:46:00.123Z".
std::string utcTimestamp();

// Writes the whole line with one write(2); 0, or the errno of the failure.
int writeWhole(int fd, const std::string& line);

// Opens `path` for appending (creating it readable by its owner only),
// writes the line, closes it; 0, or the errno of what failed. Never blocks:
// a FIFO without a reader, or one that is full, is a failure.
int appendToFile(const std::string& path, const std::string& line);

}  // namespace varnock::jsonLines
