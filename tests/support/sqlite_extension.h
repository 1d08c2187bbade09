// SPDX-License-Identifier: MIT
// Test hook: the register's collation as the extension this build makes, for
// tests that open a register with the sqlite3 shell or SQLite's ODBC driver.
#pragma once

#include <string>

namespace varnock::testing {

inline const char* const kSqliteExtensionPath = VARNOCK_SQLITE_EXTENSION_PATH;

// The shell's dot-command that loads it (quoted: the path may hold blanks).
inline std::string loadExtensionCommand() {
  return std::string(".load '") + kSqliteExtensionPath + "'";
}

}  // namespace varnock::testing
