// Benchmark support: the raw SQLite C API doing what a data method does with
// the same statement (open, run, read every field of every row into Variants,
// close), as the baseline each measured operation is compared with. The
// register's collation is registered as the provider registers it.
#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

#include "client/sqlite/unicode_text.h"
#include "varnock/variant.h"

namespace varnock::bench {

using RawRow = std::vector<Variant>;

// Opens `path`, runs `sql`, keeps at most `maxRows` rows (0: all), closes.
inline std::vector<RawRow> rawQuery(const std::string& path, const char* sql,
                                    std::size_t maxRows = 0) {
  sqlite3* db = nullptr;
  sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE, nullptr);
  client::sqlite::registerUnicodeText(db);
  sqlite3_busy_timeout(db, 30000);
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(db, sql, -1, &statement, nullptr);
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
  sqlite3_finalize(statement);
  sqlite3_close(db);
  return rows;
}

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
