#include "client/sqlite/dialect.h"

#include <vector>

#include "client/sqlite/date_literals.h"
#include "client/sqlite/sql_tokens.h"
#include "client/sqlite/top_clause.h"

namespace varnock::client::sqlite {

std::string toSqliteDialect(std::string_view statement, const RegisterSchema& schema) {
  std::vector<Token> tokens = tokenize(statement);
  for (Token& t : tokens) {
    // SQL Server's Unicode literal; SQLite's literals are Unicode already.
    // The N becomes a blank, not nothing: 'O'N'Brien' is two literals, and
    // must not become the one literal 'O''Brien'.
    if (t.kind == Token::Kind::String && t.text.front() != '\'') t.text.front() = ' ';
    // SQL Server has no boolean literals: a bare True or False is a column
    // name, which SQLite would read as 1 or 0 when no such column exists.
    if (isKeyword(t, "true") || isKeyword(t, "false")) {
      t = Token{Token::Kind::QuotedName, "[" + t.text + "]"};
    }
  }
  rewriteDateLiterals(tokens, schema);
  moveTopToLimit(tokens);
  return joinTokens(tokens);
}

bool isBlank(std::string_view text) {
  for (const Token& t : tokenize(text)) {
    if (isSignificant(t) && !isSymbol(t, ";")) return false;
  }
  return true;
}

}  // namespace varnock::client::sqlite
