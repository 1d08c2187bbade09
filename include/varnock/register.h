// Creating a register: a new, empty Tolvane_Register as an SQLite database
// file, with every table, key and relation that record objects expect. The
// file stays an ordinary SQLite database that the sqlite3 shell can read and
// write with plain SQL.
//
//   const std::string dsn = varnock::createRegister("register.db");
//   varnock::User user;
//   user.put_DSN(dsn);  // "Provider=SQLite;Data Source=register.db"
#pragma once

#include <string>

namespace varnock {

// Creates the register file at `path` and returns the connection string that
// opens it, registerConnectionString(path). Never writes over an existing
// file: a path that names one, or that cannot be created, raises
// AutomationError and leaves the file system as it was.
std::string createRegister(const std::string& path);

// The connection string that opens the SQLite register at `path`:
// "Provider=SQLite;Data Source=" + the path, in quotes when the path holds
// what would otherwise end or trim it (";", quotes, blanks at either end).
// A relative path stays relative: each call opens it from the process's
// current folder of the moment.
std::string registerConnectionString(const std::string& path);

}  // namespace varnock
