// SPDX-License-Identifier: MIT
// A column of the current row as the Variant that record objects expect: bit
// columns as Boolean, int and counts as Long, dates as Date, text as String,
// NULL as Null. The declared type of the column decides where it has one;
// expressions such as Count(*) go by what SQLite holds.
#pragma once

#include <sqlite3.h>

#include "varnock/variant.h"

namespace varnock::client::sqlite {

// What a column's declared type says about its values.
enum class DeclaredKind { Bit, Date, Other };

// The kind of a result column; the same for every row, so callers reading
// many rows ask once.
DeclaredKind declaredKind(sqlite3_stmt* statement, int column);

Variant columnValue(sqlite3_stmt* statement, int column, DeclaredKind kind);

}  // namespace varnock::client::sqlite
