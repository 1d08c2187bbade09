// SPDX-License-Identifier: MIT
// Owners of SQLite's handles: a database closes and a statement finalises when
// its owner goes, on every path.
#pragma once

#include <sqlite3.h>

#include <memory>

namespace varnock::client::sqlite {

struct DatabaseCloser {
  void operator()(sqlite3* db) const noexcept { sqlite3_close_v2(db); }
};
struct StatementFinalizer {
  void operator()(sqlite3_stmt* statement) const noexcept { sqlite3_finalize(statement); }
};

using DatabaseHandle = std::unique_ptr<sqlite3, DatabaseCloser>;
using StatementHandle = std::unique_ptr<sqlite3_stmt, StatementFinalizer>;

// A statement stays usable while its rows are read, even after the connection
// that ran it has closed, so rows and connection share the database.
using SharedDatabase = std::shared_ptr<sqlite3>;

}  // namespace varnock::client::sqlite
