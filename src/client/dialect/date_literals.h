// SPDX-License-Identifier: MIT
// Quoted dates in statements. SQL Server converts a character string to a
// date wherever it meets a date column: in the values of an INSERT, in SET
// assignments and in comparisons, in either order ("DateCreated > '5/4/2000'",
// "'May 4, 2000' = DateCreated"), and in BETWEEN and IN lists. SQLite would
// compare the texts instead, so each such literal is rewritten to the stored
// form of its date, which compares in date order.
#pragma once

#include <vector>

#include "client/dialect/register_schema.h"
#include "client/dialect/sql_tokens.h"

namespace varnock::client::dialect {

// Rewrites the literals met by date columns of the schema. A literal that is
// not a date raises kCommandFailed, as the conversion fails on SQL Server.
void rewriteDateLiterals(std::vector<Token>& tokens, const RegisterSchema& schema);

}  // namespace varnock::client::dialect
