// SPDX-License-Identifier: MIT
#include "client/sqlite/large_literals.h"

#include "client/dialect/sql_tokens.h"

namespace varnock::client::sqlite {

using dialect::nextToken;
using dialect::stringValue;
using dialect::Token;
using dialect::TokenSpan;

LargeLiterals::LargeLiterals(std::string_view statement) {
  std::size_t copiedUpTo = 0;
  for (std::size_t at = 0; at < statement.size();) {
    const TokenSpan span = nextToken(statement, at);
    const std::size_t start = at;
    at = span.end;
    if (span.kind != Token::Kind::String || span.end - start < kLargeLiteralBytes) continue;
    const std::string_view literal = statement.substr(start, span.end - start);
    const std::size_t open = literal.find('\'');
    const bool closed = literal.size() >= open + 2 && literal.back() == '\'';
    if (!closed) continue;  // unterminated: left for SQLite to refuse
    const std::string_view inner = literal.substr(open + 1, literal.size() - open - 2);
    if (inner.find('\'') == std::string_view::npos) {
      values_.push_back(inner);
    } else {
      values_.push_back(unescaped_.emplace_back(stringValue(literal)));
    }
    statement_.append(statement.substr(copiedUpTo, start - copiedUpTo));
    // A blank on each side keeps the parameter from joining its neighbours.
    statement_.append(" ?").append(std::to_string(values_.size())).append(" ");
    copiedUpTo = span.end;
  }
  if (any()) statement_.append(statement.substr(copiedUpTo));
}

}  // namespace varnock::client::sqlite
