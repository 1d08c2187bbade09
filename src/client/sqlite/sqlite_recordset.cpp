// SPDX-License-Identifier: MIT
#include "client/sqlite/sqlite_recordset.h"

#include <utility>

#include "automation/text.h"
#include "client/sqlite/column_values.h"
#include "client/sqlite/sqlite_errors.h"

namespace varnock::client::sqlite {

SqliteRecordset::SqliteRecordset(std::shared_ptr<StatementCache> cache, PreparedStatement statement,
                                 bool onRow)
    : cache_(std::move(cache)),
      statement_(std::move(statement)),
      columns_(statement_.columns),
      onRow_(onRow) {
  if (!onRow_) giveBack();
}

SqliteRecordset::~SqliteRecordset() {
  giveBack();
}

void SqliteRecordset::giveBack() noexcept {
  if (statement_.statement) cache_->giveBack(std::move(statement_));
}

Variant SqliteRecordset::field(std::string_view name) const {
  const std::vector<std::string>& names = columns_->names;
  std::size_t found = names.size();
  // The guess holds only for the first field of its name: that is the one read.
  if (nextGuess_ < names.size() && columns_->firstOfName[nextGuess_] &&
      equalsIgnoringCase(names[nextGuess_], name)) {
    found = nextGuess_;
  } else {
    for (std::size_t i = 0; i < names.size(); ++i) {
      if (equalsIgnoringCase(names[i], name)) {
        found = i;
        break;
      }
    }
  }
  if (found == names.size()) fail(kItemNotFound, kItemNotFoundText);
  if (!onRow_) fail(kNoCurrentRecord, kNoCurrentRecordText);
  nextGuess_ = (found + 1) % names.size();
  return columnValue(statement_.statement.get(), static_cast<int>(found), columns_->kinds[found]);
}

void SqliteRecordset::moveNext() {
  if (!onRow_) fail(kNoCurrentRecord, kNoCurrentRecordText);
  const int stepped = sqlite3_step(statement_.statement.get());
  if (stepped == SQLITE_ROW) return;
  onRow_ = false;
  if (stepped == SQLITE_DONE) {
    giveBack();
    return;
  }
  std::string description = sqlite3_errmsg(cache_->db());
  giveBack();
  fail(kCommandFailed, std::move(description));
}

}  // namespace varnock::client::sqlite
