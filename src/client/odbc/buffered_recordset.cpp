// SPDX-License-Identifier: MIT
#include "client/odbc/buffered_recordset.h"

#include <utility>

#include "automation/text.h"
#include "client/odbc/odbc_errors.h"

namespace varnock::client::odbc {

BufferedRecordset::BufferedRecordset(std::vector<std::string> names,
                                     std::vector<std::vector<Variant>> rows, std::string source)
    : names_(std::move(names)), rows_(std::move(rows)), source_(std::move(source)) {}

Variant BufferedRecordset::field(std::string_view name) const {
  for (std::size_t i = 0; i < names_.size(); ++i) {
    if (!equalsIgnoringCase(names_[i], name)) continue;
    if (eof()) fail(kNoCurrentRecord, kNoCurrentRecordText, source_);
    return rows_[current_][i];
  }
  fail(kItemNotFound, kItemNotFoundText, source_);
}

void BufferedRecordset::moveNext() {
  if (eof()) fail(kNoCurrentRecord, kNoCurrentRecordText, source_);
  // A row read past is not read again: its values go at once.
  rows_[current_].clear();
  rows_[current_].shrink_to_fit();
  ++current_;
}

}  // namespace varnock::client::odbc
