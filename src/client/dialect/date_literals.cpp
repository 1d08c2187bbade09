// SPDX-License-Identifier: MIT
#include "client/dialect/date_literals.h"

#include "client/dialect/column_literals.h"
#include "client/dialect/stored_dates.h"

namespace varnock::client::dialect {

void rewriteDateLiterals(std::vector<Token>& tokens, const RegisterSchema& schema) {
  for (const ColumnLiteral& found : findColumnLiterals(tokens, schema)) {
    Token& literal = tokens[found.literal];
    if (found.kind != ColumnKind::Date || literal.kind != Token::Kind::String) continue;
    literal.text = quoted(storedDateText(stringValue(literal)));
  }
}

}  // namespace varnock::client::dialect
