// SPDX-License-Identifier: MIT
#include "client/sqlite/column_values.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "client/dialect/declared_types.h"
#include "client/dialect/stored_dates.h"

namespace varnock::client::sqlite {

using dialect::declaresType;
using dialect::storedDate;

namespace {

std::string_view textOf(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

// What SQLite holds, as its nearest Variant: integers as Long while they fit
// in 32 bits (SQL Server's int), larger ones as Double.
Variant byStorage(sqlite3_stmt* statement, int column, int storage) {
  switch (storage) {
    case SQLITE_INTEGER: {
      const sqlite3_int64 value = sqlite3_column_int64(statement, column);
      if (value >= std::numeric_limits<std::int32_t>::min() &&
          value <= std::numeric_limits<std::int32_t>::max()) {
        return Variant(static_cast<std::int32_t>(value));
      }
      return Variant(static_cast<double>(value));
    }
    case SQLITE_FLOAT:
      return Variant(sqlite3_column_double(statement, column));
    case SQLITE_BLOB: {
      const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
      return Variant(std::string(
          bytes, bytes + static_cast<std::size_t>(sqlite3_column_bytes(statement, column))));
    }
    default:
      return Variant(std::string(textOf(statement, column)));
  }
}

}  // namespace

DeclaredKind declaredKind(sqlite3_stmt* statement, int column) {
  const char* declaredType = sqlite3_column_decltype(statement, column);
  if (declaredType == nullptr) return DeclaredKind::Other;
  if (declaresType(declaredType, "bit")) return DeclaredKind::Bit;
  if (declaresType(declaredType, "smalldatetime")) return DeclaredKind::Date;
  return DeclaredKind::Other;
}

Variant columnValue(sqlite3_stmt* statement, int column, DeclaredKind kind) {
  const int storage = sqlite3_column_type(statement, column);
  if (storage == SQLITE_NULL) return Variant::null();
  switch (kind) {
    case DeclaredKind::Bit:
      if (storage == SQLITE_INTEGER || storage == SQLITE_FLOAT) {
        return Variant(sqlite3_column_double(statement, column) != 0.0);
      }
      break;
    case DeclaredKind::Date:
      if (storage == SQLITE_TEXT) {
        if (const std::optional<Date> date = storedDate(textOf(statement, column))) {
          return Variant(*date);
        }
      }
      break;
    case DeclaredKind::Other:
      break;
  }
  return byStorage(statement, column, storage);
}

}  // namespace varnock::client::sqlite
