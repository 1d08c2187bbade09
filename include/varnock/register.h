// SPDX-License-Identifier: MIT
// Creating and copying registers. A register is a Tolvane_Register database
// with every table, key and relation that record objects expect: a new SQLite
// file (an ordinary SQLite database that the sqlite3 shell can read), or the
// tables made in an existing database on a server.
//
//   const std::string dsn = varnock::createRegister("register.db");
//   varnock::User user;
//   user.put_DSN(dsn);  // "Provider=SQLite;Data Source=register.db"
//   // Another register, here a second file, filled with the first one's rows.
//   varnock::copyRegister(dsn, varnock::createRegister("copy.db"));
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "varnock/export.h"

VARNOCK_PUBLIC_BEGIN
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

// Creates the register's tables where a connection string points: for the
// SQLite provider a new file, as createRegister; through ODBC, in the
// existing database the connection reaches (PostgreSQL, SQL Server, SQLite),
// which must not hold the register's tables already. Raises AutomationError.
void createRegisterIn(const std::string& connectionString);

// How far a copy has come, after each batch of rows.
struct CopyProgress {
  std::string_view table;
  std::int64_t tableRows;    // rows of this table in the source
  std::int64_t copiedRows;   // of this table, so far
  std::int64_t totalRows;    // rows of every table in the source
  std::int64_t totalCopied;  // of every table, so far
};

struct CopyOptions {
  // Add to a target that already holds rows; by default a target holding any
  // row is refused before anything is written.
  bool append = false;
  // Called after each batch; may be empty.
  std::function<void(const CopyProgress&)> progress;
};

// The rows copied into one table.
struct CopiedTable {
  std::string table;
  std::int64_t rows;
};

// Copies every row of every table from one register to another, parents
// before children, with the statements the record classes' Add methods send.
// Afterwards the target's row count of each table is checked: its count
// before the copy plus the rows copied. Any failure raises AutomationError
// naming the table (and the row's key where one was being written); the
// source is only read. Returns the rows copied per table, in copying order.
std::vector<CopiedTable> copyRegister(const std::string& from, const std::string& to,
                                      const CopyOptions& options = {});

}  // namespace varnock
VARNOCK_PUBLIC_END
