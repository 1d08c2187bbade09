// The rows of one statement, read forwards over the prepared statement. The
// statement has already been stepped to its first row; once the rows run out
// it is finalised, so a recordset at its end holds no lock on the register.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "client/client.h"
#include "client/sqlite/column_values.h"
#include "client/sqlite/sqlite_handles.h"

namespace varnock::client::sqlite {

class SqliteRecordset final : public Recordset {
 public:
  // `onRow` tells whether the first step found a row.
  SqliteRecordset(SharedDatabase db, StatementHandle statement, bool onRow);

  bool eof() const override { return !onRow_; }
  // The first field of that name, compared without regard to case: a join
  // has several of one name, and the first is the one read.
  Variant field(std::string_view name) const override;
  void moveNext() override;

 private:
  SharedDatabase db_;  // declared first, so the statement finalises before it goes
  StatementHandle statement_;
  std::vector<std::string> names_;
  std::vector<DeclaredKind> kinds_;  // per column, from its declared type
  std::vector<bool> firstOfName_;    // per column: no earlier column has its name
  // Callers read the fields of a row in order: the search starts after the
  // field found last.
  mutable std::size_t nextGuess_ = 0;
  bool onRow_;
};

}  // namespace varnock::client::sqlite
