#include "client/sqlite/sqlite_recordset.h"

#include <utility>

#include "automation/text.h"
#include "client/sqlite/column_values.h"
#include "client/sqlite/sqlite_errors.h"

namespace varnock::client::sqlite {

SqliteRecordset::SqliteRecordset(SharedDatabase db, StatementHandle statement, bool onRow)
    : db_(std::move(db)), statement_(std::move(statement)), onRow_(onRow) {
  const int count = sqlite3_column_count(statement_.get());
  names_.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const char* name = sqlite3_column_name(statement_.get(), i);
    names_.emplace_back(name == nullptr ? "" : name);
  }
  if (!onRow_) statement_.reset();
}

Variant SqliteRecordset::field(std::string_view name) const {
  for (std::size_t i = 0; i < names_.size(); ++i) {
    if (!equalsIgnoringCase(names_[i], name)) continue;
    if (!onRow_) fail(kNoCurrentRecord, kNoCurrentRecordText);
    return columnValue(statement_.get(), static_cast<int>(i));
  }
  fail(kItemNotFound, kItemNotFoundText);
}

void SqliteRecordset::moveNext() {
  if (!onRow_) fail(kNoCurrentRecord, kNoCurrentRecordText);
  const int stepped = sqlite3_step(statement_.get());
  if (stepped == SQLITE_ROW) return;
  onRow_ = false;
  if (stepped == SQLITE_DONE) {
    statement_.reset();
    return;
  }
  std::string description = sqlite3_errmsg(db_.get());
  statement_.reset();
  fail(kCommandFailed, std::move(description));
}

}  // namespace varnock::client::sqlite
