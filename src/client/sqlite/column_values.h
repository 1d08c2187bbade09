// A column of the current row as the Variant that record objects expect: bit
// columns as Boolean, int and counts as Long, dates as Date, text as String,
// NULL as Null. The declared type of the column decides where it has one;
// expressions such as Count(*) go by what SQLite holds.
#pragma once

#include <sqlite3.h>

#include "varnock/variant.h"

namespace varnock::client::sqlite {

Variant columnValue(sqlite3_stmt* statement, int column);

}  // namespace varnock::client::sqlite
