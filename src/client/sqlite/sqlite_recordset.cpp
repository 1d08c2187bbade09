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
  kinds_.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const char* name = sqlite3_column_name(statement_.get(), i);
    names_.emplace_back(name == nullptr ? "" : name);
    kinds_.push_back(declaredKind(statement_.get(), i));
    bool first = true;
    for (int earlier = 0; earlier < i && first; ++earlier) {
      first = !equalsIgnoringCase(names_[static_cast<std::size_t>(earlier)], names_.back());
    }
    firstOfName_.push_back(first);
  }
  if (!onRow_) statement_.reset();
}

Variant SqliteRecordset::field(std::string_view name) const {
  std::size_t found = names_.size();
  // The guess holds only for the first field of its name: that is the one read.
  if (nextGuess_ < names_.size() && firstOfName_[nextGuess_] &&
      equalsIgnoringCase(names_[nextGuess_], name)) {
    found = nextGuess_;
  } else {
    for (std::size_t i = 0; i < names_.size(); ++i) {
      if (equalsIgnoringCase(names_[i], name)) {
        found = i;
        break;
      }
    }
  }
  if (found == names_.size()) fail(kItemNotFound, kItemNotFoundText);
  if (!onRow_) fail(kNoCurrentRecord, kNoCurrentRecordText);
  nextGuess_ = (found + 1) % names_.size();
  return columnValue(statement_.get(), static_cast<int>(found), kinds_[found]);
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
