// SPDX-License-Identifier: MIT
// SQL Server's dialect, as record objects and their callers write it, turned
// into PostgreSQL's, for the register that schema/postgresql.sql makes:
//   * TOP n becomes LIMIT n at the end of its own SELECT;
//   * [bracketed] and "quoted" names are folded to lower case and quoted as
//     PostgreSQL quotes them ([User] is "user"): the register's names are in
//     lower case, and bare names are folded by PostgreSQL itself;
//   * a bare True or False stays a name, as SQL Server reads it;
//   * N'text' loses its N (PostgreSQL would make it a blank-padded char);
//   * literals that meet a column are converted as SQL Server converts them:
//     dates to the stored form, 1/0 and 'True'/'False' for bits to booleans
//     (a bit compared with a number is compared as a number), numbers for
//     ints cut to whole numbers;
//   * LIKE takes no escape character, as on SQL Server;
//   * Count(...) is an int, as on SQL Server, not a bigint.
// Nothing inside a literal changes unless it is such a value.
#pragma once

#include <string>
#include <string_view>

#include "client/dialect/register_schema.h"

namespace varnock::client::dialect {

// PostgreSQL's text cannot hold the character NUL, which SQL Server's can.
inline constexpr const char* kNulCharacterText =
    "PostgreSQL cannot hold the character NUL (code 0) in a text or a statement.";

// Raises StatementRefused where SQL Server itself would refuse the
// statement (a TOP count that is not a whole number or is negative; a
// literal that is no value of the column it meets; an int out of range),
// and with kNulCharacterText for a statement that holds a NUL character.
std::string toPostgresDialect(std::string_view statement, const RegisterSchema& schema);

}  // namespace varnock::client::dialect
