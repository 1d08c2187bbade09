// SPDX-License-Identifier: MIT
// Literals that meet a column of the register, where SQL Server converts them
// to the column's type: the values of an INSERT, SET assignments, and
// comparisons with a column in either order ("DateCreated > '5/4/2000'",
// "1 = Authorized"), BETWEEN and IN lists. A literal counts only when it
// stands alone there: in "Address = 2 * 3" the 2 meets no column, the
// product does. Numbers may carry a sign ("Address = -5").
#pragma once

#include <cstddef>
#include <vector>

#include "client/dialect/register_schema.h"
#include "client/dialect/sql_tokens.h"

namespace varnock::client::dialect {

struct ColumnLiteral {
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  ColumnKind kind;  // of the column it meets
  // Stored into the column (an INSERT value or a SET assignment) rather
  // than compared with it.
  bool stored;
  // Token positions: the literal (a String or a Number), the + or - before
  // a number (kNone without one), and the first and last tokens of the
  // column's name in a comparison or assignment (kNone for INSERT values).
  std::size_t literal;
  std::size_t sign = kNone;
  std::size_t columnFirst = kNone;
  std::size_t columnLast = kNone;
};

// Every such literal once, in no particular order. Only columns of the
// schema's tables that the statement names count.
std::vector<ColumnLiteral> findColumnLiterals(const std::vector<Token>& tokens,
                                              const RegisterSchema& schema);

}  // namespace varnock::client::dialect
