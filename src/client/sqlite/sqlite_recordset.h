// SPDX-License-Identifier: MIT
// The rows of one statement, read forwards over the prepared statement. The
// statement has already been stepped to its first row; once the rows run out
// it goes back to its session's cache, reset, so a recordset at its end holds
// no lock on the register.
#pragma once

#include <memory>
#include <string_view>

#include "client/client.h"
#include "client/sqlite/statement_cache.h"

namespace varnock::client::sqlite {

class SqliteRecordset final : public Recordset {
 public:
  // `onRow` tells whether the first step found a row.
  SqliteRecordset(std::shared_ptr<StatementCache> cache, PreparedStatement statement, bool onRow);
  ~SqliteRecordset() override;
  SqliteRecordset(const SqliteRecordset&) = delete;
  SqliteRecordset& operator=(const SqliteRecordset&) = delete;

  bool eof() const override { return !onRow_; }
  // The first field of that name, compared without regard to case: a join
  // has several of one name, and the first is the one read.
  Variant field(std::string_view name) const override;
  void moveNext() override;

 private:
  void giveBack() noexcept;

  std::shared_ptr<StatementCache> cache_;  // outlives the session that ran the statement
  PreparedStatement statement_;
  std::shared_ptr<const ResultColumns> columns_;
  // Callers read the fields of a row in order: the search starts after the
  // field found last.
  mutable std::size_t nextGuess_ = 0;
  bool onRow_;
};

}  // namespace varnock::client::sqlite
