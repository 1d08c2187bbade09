// SPDX-License-Identifier: MIT
#include "client/dialect/sqlite_dialect.h"

#include <vector>

#include "client/dialect/date_literals.h"
#include "client/dialect/sql_tokens.h"
#include "client/dialect/top_clause.h"

namespace varnock::client::dialect {

namespace {

// SQL Server's texts may hold NUL characters; SQLite stops reading a
// statement at one. A literal that holds them becomes the same text built
// with char(0): ('a' || char(0) || 'b').
void spellOutNulCharacters(std::vector<Token>& tokens) {
  for (Token& t : tokens) {
    if (t.kind != Token::Kind::String || t.text.find('\0') == std::string::npos) continue;
    const std::string value = stringValue(t);
    std::string spelled = "(";
    std::size_t start = 0;
    for (std::size_t nul = value.find('\0'); nul != std::string::npos;
         nul = value.find('\0', start)) {
      spelled += quoted(std::string_view(value).substr(start, nul - start)) + " || char(0) || ";
      start = nul + 1;
    }
    t.text = spelled + quoted(std::string_view(value).substr(start)) + ")";
  }
}

}  // namespace

std::string toSqliteDialect(std::string_view statement, const RegisterSchema& schema) {
  std::vector<Token> tokens = tokenize(statement);
  for (Token& t : tokens) {
    // TRUE and FALSE are no literals on SQL Server but names, which it
    // refuses as columns it does not know; SQLite would read them as 1 and 0.
    if (isKeyword(t, "true") || isKeyword(t, "false")) {
      t = {Token::Kind::QuotedName, "[" + t.text + "]"};
      continue;
    }
    // SQL Server's Unicode literal; SQLite's literals are Unicode already.
    // The N becomes a blank, not nothing: 'O'N'Brien' is two literals, and
    // must not become the one literal 'O''Brien'.
    if (t.kind == Token::Kind::String && t.text.front() != '\'') t.text.front() = ' ';
  }
  rewriteDateLiterals(tokens, schema);
  moveTopToLimit(tokens);
  spellOutNulCharacters(tokens);
  return joinTokens(tokens);
}

bool isBlank(std::string_view text) {
  for (const Token& t : tokenize(text)) {
    if (isSignificant(t) && !isSymbol(t, ";")) return false;
  }
  return true;
}

}  // namespace varnock::client::dialect
