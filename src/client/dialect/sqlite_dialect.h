// SPDX-License-Identifier: MIT
// SQL Server's dialect, as record objects and their callers write it, turned
// into SQLite's. Most of it SQLite reads already: [bracketed] names,
// Count(*), NOT IN, '' inside literals. What differs is rewritten here: TOP
// becomes LIMIT, N'text' loses its N, a bare True or False stays a name (as
// [True]) rather than SQLite's boolean, and quoted dates met by date columns
// become the register's stored date form. Nothing inside a literal changes
// unless it is such a date.
#pragma once

#include <string>
#include <string_view>

#include "client/dialect/register_schema.h"

namespace varnock::client::dialect {

// Raises kCommandFailed where SQL Server itself would refuse the statement:
// a TOP count that is not a whole number or is negative, or a literal that is
// no date where a date column needs one.
std::string toSqliteDialect(std::string_view statement, const RegisterSchema& schema);

// True when the text holds nothing but blanks, comments and semicolons.
bool isBlank(std::string_view text);

}  // namespace varnock::client::dialect
