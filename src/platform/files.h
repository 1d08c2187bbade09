// SPDX-License-Identifier: MIT
// What differs between Linux and Windows about files: appending one line to
// a log without ever waiting on it, writing to standard error, telling
// whether a path still names the same file, and the calendar time in UTC.
#pragma once

#include <ctime>
#include <optional>
#include <string>

namespace varnock::platform {

// Appends the whole line to the file at `path` (created readable by its
// owner only) with one write, so that concurrent writers never interleave.
// Never waits: a FIFO without a reader, or a full one, is a failure.
// Returns 0, or the system's error code.
int appendLine(const std::string& path, const std::string& line);

// Writes the whole line to standard error with one write; 0 or the error code.
int writeStandardError(const std::string& line);

// What names one file for as long as it exists: its device and file number.
// A file deleted and made again under the same path has another identity.
struct FileIdentity {
  unsigned long long device = 0;
  unsigned long long file = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

// Empty when there is no file at `path`.
std::optional<FileIdentity> fileIdentity(const std::string& path);

// `seconds` as a UTC calendar time.
std::tm utcTime(std::time_t seconds);

}  // namespace varnock::platform
