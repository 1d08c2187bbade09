// SPDX-License-Identifier: MIT
// Benchmark support: the raw SQLite C API doing what a data method does with
// the same statement (open, run, read every field of every row into Variants,
// close), as the baseline each measured operation is compared with. The
// register's collation is registered as the provider registers it.
#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>
#include <vector>

#include "client/sqlite/unicode_text.h"
#include "varnock/variant.h"

namespace varnock::bench {

using RawRow = std::vector<Variant>;

// Every field of the rows a stepped statement still has, at most `maxRows`
// rows (0: all), as Variants.
inline std::vector<RawRow> readRows(sqlite3_stmt* statement, std::size_t maxRows = 0) {
  std::vector<RawRow> rows;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    const int columns = sqlite3_column_count(statement);
    RawRow row;
    row.reserve(static_cast<std::size_t>(columns));
    for (int c = 0; c < columns; ++c) {
      switch (sqlite3_column_type(statement, c)) {
        case SQLITE_INTEGER:
          row.emplace_back(static_cast<std::int32_t>(sqlite3_column_int(statement, c)));
          break;
        case SQLITE_NULL:
          row.push_back(Variant::null());
          break;
        default:
          row.emplace_back(
              std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, c)),
                          static_cast<std::size_t>(sqlite3_column_bytes(statement, c))));
      }
    }
    rows.push_back(std::move(row));
    if (maxRows != 0 && rows.size() == maxRows) break;
  }
  return rows;
}

// Opens `path`, runs `sql`, keeps at most `maxRows` rows (0: all), closes.
inline std::vector<RawRow> rawQuery(const std::string& path, const char* sql,
                                    std::size_t maxRows = 0) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  client::sqlite::registerUnicodeText(db);
  sqlite3_busy_timeout(db, 30000);
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
  std::vector<RawRow> rows = readRows(statement, maxRows);
  sqlite3_finalize(statement);
  sqlite3_close(db);
  return rows;
}

// One connection opened for the whole run, with the settings a register's
// session has (its collation, the busy timeout, foreign keys, the register's
// own journal and durability settings): what a kept session costs at least.
class KeptConnection {
 public:
  explicit KeptConnection(const std::string& path) {
    sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READWRITE, nullptr);
    client::sqlite::registerUnicodeText(db_);
    sqlite3_busy_timeout(db_, 30000);
    sqlite3_exec(db_, "PRAGMA foreign_keys = ON", nullptr, nullptr, nullptr);
  }
  ~KeptConnection() { sqlite3_close_v2(db_); }
  KeptConnection(const KeptConnection&) = delete;
  KeptConnection& operator=(const KeptConnection&) = delete;

  sqlite3* db() const { return db_; }

  // Prepares, runs and finalises `sql`.
  std::vector<RawRow> query(const std::string& sql, std::size_t maxRows = 0) const {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(db_, sql.c_str(), static_cast<int>(sql.size()), &statement, nullptr);
    std::vector<RawRow> rows = readRows(statement, maxRows);
    sqlite3_finalize(statement);
    return rows;
  }

 private:
  sqlite3* db_ = nullptr;
};

// One statement prepared once and run again and again: reset, bind, step.
// The floor under any way of running it.
class ReusedStatement {
 public:
  ReusedStatement(const KeptConnection& connection, const char* sql) {
    sqlite3_prepare_v2(connection.db(), sql, -1, &statement_, nullptr);
  }
  ~ReusedStatement() { sqlite3_finalize(statement_); }
  ReusedStatement(const ReusedStatement&) = delete;
  ReusedStatement& operator=(const ReusedStatement&) = delete;

  // Runs it with `text` bound to its one parameter, if it has one.
  std::vector<RawRow> run(std::string_view text = {}, std::size_t maxRows = 0) const {
    sqlite3_reset(statement_);
    if (sqlite3_bind_parameter_count(statement_) > 0) {
      sqlite3_bind_text(statement_, 1, text.data(), static_cast<int>(text.size()),
                        SQLITE_TRANSIENT);
    }
    std::vector<RawRow> rows = readRows(statement_, maxRows);
    sqlite3_reset(statement_);
    return rows;
  }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

// Runs statements in one transaction, for filling a register quickly.
inline void rawExecute(const std::string& path, const std::vector<std::string>& statements) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  client::sqlite::registerUnicodeText(db);
  sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
  for (const std::string& s : statements)
    sqlite3_exec(db, s.c_str(), nullptr, nullptr, nullptr);
  sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
  sqlite3_close(db);
}

}  // namespace varnock::bench
