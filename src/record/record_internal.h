// SPDX-License-Identifier: MIT
// The generic machinery behind every record class, for the layers that run
// its operations (data methods, relations, the object host, the generated
// classes): the table, the columns by position, the checked assignment and
// the last error message. Not part of the public interface.
#pragma once

#include <cstddef>
#include <string>

#include "catalogue/catalogue.h"
#include "varnock/record.h"

namespace varnock {

class RecordInternal {
 public:
  static const catalogue::Table& table(const Record& record) noexcept { return *record.table_; }

  static std::size_t columnCount(const Record& record) noexcept { return record.values_.size(); }

  // The value of a column by position, in the table's column order. An
  // out-of-range position raises AutomationError 5.
  static const Variant& column(const Record& record, std::size_t position);

  // Checks and stores a copy of the value, or refuses it: a refused value
  // never raises; it sets the last error message, writes one event and
  // leaves the column as it was. Raises only when that event cannot be
  // written, or (error 5) for an out-of-range position.
  // Taken by value, so that a value read for the column (a row's field) is
  // moved in rather than copied.
  static void assign(Record& record, std::size_t position, Variant value);

  static const std::vector<Variant>& values(const Record& record) noexcept {
    return record.values_;
  }

  static void setLastErrorMessage(Record& record, std::string message) {
    record.lastError_ = std::move(message);
  }

  // Gives `to` the connection string of `from`, sharing rather than copying it.
  static void shareConnectionString(Record& to, const Record& from) { to.dsn_ = from.dsn_; }
};

}  // namespace varnock
