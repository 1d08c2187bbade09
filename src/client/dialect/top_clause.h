// SPDX-License-Identifier: MIT
// SQL Server limits the rows of a SELECT with "TOP n" after the word SELECT;
// SQLite with "LIMIT n" at the end of that same SELECT. The navigation and
// paging statements nest one TOP inside another ("... NOT IN  (SELECT TOP 2
// Country FROM [Country] ORDER BY Country) ..."), so each SELECT gets its LIMIT
// at its own end: before the parenthesis that closes it, or at the end of the
// statement.
#pragma once

#include <vector>

#include "client/dialect/sql_tokens.h"

namespace varnock::client::dialect {

// Moves every "TOP n" and "TOP (n)" to a LIMIT. A count that is not a whole
// number, or is negative, raises kCommandFailed with SQL Server's description.
void moveTopToLimit(std::vector<Token>& tokens);

}  // namespace varnock::client::dialect
