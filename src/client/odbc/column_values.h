// SPDX-License-Identifier: MIT
// The columns of a result and their values as the Variants record objects
// expect, as the SQLite provider gives them: bit as Boolean, whole numbers
// within a Long's range as Long (beyond it as Double), dates and times as
// Date (to the second), text as String, NULL as Null. A driver that reports
// the column's declared type (SQLite's, through SQL_DESC_TYPE_NAME) decides
// by it where the storage type says too little: a "smalldatetime" column
// holding text is a Date, a "bit" column a Boolean.
#pragma once

#include <string>
#include <vector>

#include "client/odbc/odbc_api.h"
#include "varnock/variant.h"

namespace varnock::client::odbc {

enum class ValueKind { Boolean, Integer, Real, Timestamp, StoredDate, Text, Bytes };

struct ResultColumn {
  std::string name;
  ValueKind kind;
};

// The columns of the statement's current result; none for a statement
// without rows. Raises with the statement's diagnostics.
std::vector<ResultColumn> resultColumns(SQLHSTMT statement, const std::string& source);

// The value of one column (1-based) of the fetched row, read once. Long
// text and bytes are read in pieces, so their length has no limit but
// memory.
Variant columnValue(SQLHSTMT statement, SQLUSMALLINT column, ValueKind kind,
                    const std::string& source);

// The kind of a column by its ODBC type and its declared type name.
ValueKind kindOf(SQLSMALLINT sqlType, std::string_view declaredType);

}  // namespace varnock::client::odbc
