// SPDX-License-Identifier: MIT
// Which file a path names: its device and inode. A session kept open on a
// file compares the identity it opened with the path's identity now, so that
// a file deleted, or replaced by another under the same name, is never read
// through a session that still holds the old one. While a session holds the
// old file open its inode cannot be given to a new file.
#pragma once

#include <optional>
#include <string>

namespace varnock::client {

struct FileIdentity {
  unsigned long long device = 0;
  unsigned long long inode = 0;
  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

// The identity of the file at `path` now; nothing when there is none.
std::optional<FileIdentity> fileIdentity(const std::string& path);

}  // namespace varnock::client
