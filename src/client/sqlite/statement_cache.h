// SPDX-License-Identifier: MIT
// Prepared statements kept on one SQLite session for the statements that
// follow, by their text. A statement is taken out while its rows are read
// (so a second statement of the same text, run meanwhile, gets one of its
// own) and given back, reset, when they are done. The most recently used
// are kept; the rest are finalised.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "automation/text.h"
#include "client/sqlite/column_values.h"
#include "client/sqlite/sqlite_handles.h"

namespace varnock::client::sqlite {

// What a recordset needs of a statement's result columns, worked out once
// per prepared statement rather than once per execution.
struct ResultColumns {
  explicit ResultColumns(sqlite3_stmt* statement);
  std::vector<std::string> names;
  std::vector<DeclaredKind> kinds;  // from each column's declared type
  std::vector<bool> firstOfName;    // no earlier column has its name
};

// A statement taken out of the cache.
struct PreparedStatement {
  std::string text;
  StatementHandle statement;
  std::shared_ptr<const ResultColumns> columns;
};

class StatementCache {
 public:
  explicit StatementCache(SharedDatabase db) : db_(std::move(db)) {}
  StatementCache(const StatementCache&) = delete;
  StatementCache& operator=(const StatementCache&) = delete;

  sqlite3* db() const noexcept { return db_.get(); }

  // The statement of this text, kept or prepared now. Raises kCommandFailed
  // with SQLite's message when it cannot be prepared, and when the text
  // holds several statements or none.
  PreparedStatement take(std::string_view text);
  // Resets the statement, drops its bindings and keeps it.
  void giveBack(PreparedStatement statement) noexcept;
  // Whether a statement is taken out: its rows may still be read.
  bool anyTaken() const noexcept { return taken_ > 0; }
  // Finalises every kept statement (the schema changed under them).
  void clear() noexcept { kept_.clear(); }

 private:
  struct Kept {
    StatementHandle statement;
    std::shared_ptr<const ResultColumns> columns;
    std::uint64_t lastUse;
  };

  SharedDatabase db_;  // first, so that it outlives the statements
  std::unordered_map<std::string, Kept, TextHash, std::equal_to<>> kept_;
  std::uint64_t uses_ = 0;
  std::size_t taken_ = 0;
};

// SQLite's message for the last failure on `db`; for a register this process
// may only read, with the reason, since SQLite's words do not say which file
// or why.
std::string failureText(sqlite3* db);

}  // namespace varnock::client::sqlite
