// SPDX-License-Identifier: MIT
#include "client/odbc/column_values.h"

#include <cstdint>
#include <limits>
#include <optional>

#include "client/dialect/declared_types.h"
#include "client/dialect/stored_dates.h"
#include "client/odbc/odbc_api.h"
#include "client/odbc/odbc_errors.h"
#include "client/odbc/wide_text.h"

namespace varnock::client::odbc {

namespace {

using dialect::declaresType;

// Units read per SQLGetData call for long values.
constexpr std::size_t kPieceUnits = 4096;

[[noreturn]] void raiseFor(SQLHSTMT statement, const std::string& source) {
  raiseFrom(SQL_HANDLE_STMT, statement, source);
}

// Text or bytes, read in pieces: a piece that fills the buffer ends in a
// terminator (for text) and is followed by more. nullopt for NULL.
template <class Unit>
std::optional<std::basic_string<Unit>> readLong(SQLHSTMT statement, SQLUSMALLINT column,
                                                SQLSMALLINT cType, const std::string& source) {
  constexpr std::size_t kTerminator = sizeof(Unit) == 1 ? 0 : 1;
  std::basic_string<Unit> value;
  // On the stack and left unfilled: this runs for every text value of every
  // row, and a fresh zeroed buffer each time cost more than the read itself.
  Unit piece[kPieceUnits];
  for (;;) {
    SQLLEN indicator = 0;
    const SQLRETURN got =
        SQLGetData(statement, column, cType, piece, static_cast<SQLLEN>(sizeof piece), &indicator);
    if (got == SQL_NO_DATA) break;
    if (!SQL_SUCCEEDED(got)) raiseFor(statement, source);
    if (indicator == SQL_NULL_DATA) return std::nullopt;
    const std::size_t room = kPieceUnits - kTerminator;
    const bool more =
        indicator == SQL_NO_TOTAL || static_cast<std::size_t>(indicator) / sizeof(Unit) > room;
    value.append(piece, more ? room : static_cast<std::size_t>(indicator) / sizeof(Unit));
    if (!more) break;
  }
  return value;
}

template <class Fixed>
std::optional<Fixed> readFixed(SQLHSTMT statement, SQLUSMALLINT column, SQLSMALLINT cType,
                               const std::string& source) {
  Fixed value{};
  SQLLEN indicator = 0;
  const SQLRETURN got = SQLGetData(statement, column, cType, &value, sizeof value, &indicator);
  if (!SQL_SUCCEEDED(got)) raiseFor(statement, source);
  if (indicator == SQL_NULL_DATA) return std::nullopt;
  return value;
}

std::u16string readName(SQLHSTMT statement, SQLUSMALLINT column, SQLUSMALLINT field,
                        const std::string& source) {
  std::u16string text(256, u'\0');
  SQLSMALLINT bytes = 0;
  SQLRETURN got = SQLColAttributeW(statement, column, field, text.data(),
                                   static_cast<SQLSMALLINT>(text.size() * 2), &bytes, nullptr);
  if (SQL_SUCCEEDED(got) && static_cast<std::size_t>(bytes) / 2 >= text.size()) {
    text.assign(static_cast<std::size_t>(bytes) / 2 + 1, u'\0');
    got = SQLColAttributeW(statement, column, field, text.data(),
                           static_cast<SQLSMALLINT>(text.size() * 2), &bytes, nullptr);
  }
  if (!SQL_SUCCEEDED(got)) raiseFor(statement, source);
  text.resize(std::min(text.size(), static_cast<std::size_t>(bytes) / 2));
  return text;
}

Variant wholeNumber(std::int64_t value) {
  if (value >= std::numeric_limits<std::int32_t>::min() &&
      value <= std::numeric_limits<std::int32_t>::max()) {
    return Variant(static_cast<std::int32_t>(value));
  }
  return Variant(static_cast<double>(value));
}

}  // namespace

ValueKind kindOf(SQLSMALLINT sqlType, std::string_view declaredType) {
  // PostgreSQL's driver reports its booleans as text unless told otherwise
  // (BoolsAsChar); the type's name still says what they are.
  if (declaresType(declaredType, "bit") || declaresType(declaredType, "bool")) {
    return ValueKind::Boolean;
  }
  switch (sqlType) {
    case SQL_BIT:
      return ValueKind::Boolean;
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return ValueKind::Integer;
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
    case SQL_NUMERIC:
    case SQL_DECIMAL:
      return ValueKind::Real;
    case SQL_TYPE_TIMESTAMP:
    case SQL_TIMESTAMP:
    case SQL_TYPE_DATE:
    case SQL_DATE:
      return ValueKind::Timestamp;
    case SQL_BINARY:
    case SQL_VARBINARY:
    case SQL_LONGVARBINARY:
      return ValueKind::Bytes;
    default:
      // A date kept as text, as SQLite keeps the register's.
      return declaresType(declaredType, "smalldatetime") ? ValueKind::StoredDate : ValueKind::Text;
  }
}

std::vector<ResultColumn> resultColumns(SQLHSTMT statement, const std::string& source) {
  SQLSMALLINT count = 0;
  if (!SQL_SUCCEEDED(SQLNumResultCols(statement, &count))) raiseFor(statement, source);
  std::vector<ResultColumn> columns;
  columns.reserve(static_cast<std::size_t>(count));
  for (SQLUSMALLINT column = 1; column <= static_cast<SQLUSMALLINT>(count); ++column) {
    SQLLEN sqlType = 0;
    if (!SQL_SUCCEEDED(SQLColAttributeW(statement, column, SQL_DESC_CONCISE_TYPE, nullptr, 0,
                                        nullptr, &sqlType))) {
      raiseFor(statement, source);
    }
    const std::string declared = toUtf8(readName(statement, column, SQL_DESC_TYPE_NAME, source));
    columns.push_back({toUtf8(readName(statement, column, SQL_DESC_NAME, source)),
                       kindOf(static_cast<SQLSMALLINT>(sqlType), declared)});
  }
  return columns;
}

Variant columnValue(SQLHSTMT statement, SQLUSMALLINT column, ValueKind kind,
                    const std::string& source) {
  switch (kind) {
    case ValueKind::Boolean: {
      const auto bit = readFixed<unsigned char>(statement, column, SQL_C_BIT, source);
      return bit ? Variant(*bit != 0) : Variant::null();
    }
    case ValueKind::Integer: {
      const auto number = readFixed<std::int64_t>(statement, column, SQL_C_SBIGINT, source);
      return number ? wholeNumber(*number) : Variant::null();
    }
    case ValueKind::Real: {
      const auto number = readFixed<double>(statement, column, SQL_C_DOUBLE, source);
      return number ? Variant(*number) : Variant::null();
    }
    case ValueKind::Timestamp: {
      const auto stamp =
          readFixed<SQL_TIMESTAMP_STRUCT>(statement, column, SQL_C_TYPE_TIMESTAMP, source);
      if (!stamp) return Variant::null();
      return Variant(Date::fromCivil(
          {stamp->year, stamp->month, stamp->day, stamp->hour, stamp->minute, stamp->second}));
    }
    case ValueKind::Bytes: {
      const auto bytes = readLong<char>(statement, column, SQL_C_BINARY, source);
      return bytes ? Variant(*bytes) : Variant::null();
    }
    case ValueKind::StoredDate:
    case ValueKind::Text:
      break;
  }
  const auto text = readLong<char16_t>(statement, column, SQL_C_WCHAR, source);
  if (!text) return Variant::null();
  std::string utf8 = toUtf8(*text);
  if (kind == ValueKind::StoredDate) {
    if (const std::optional<Date> date = dialect::storedDate(utf8)) return Variant(*date);
  }
  return Variant(std::move(utf8));
}

}  // namespace varnock::client::odbc
