// SPDX-License-Identifier: MIT
#include "client/dialect/postgres_dialect.h"

#include <set>
#include <vector>

#include "automation/text.h"
#include "client/dialect/column_literals.h"
#include "client/dialect/date_literals.h"
#include "client/dialect/literal_conversions.h"
#include "client/dialect/refusal.h"
#include "client/dialect/sql_tokens.h"
#include "client/dialect/top_clause.h"

namespace varnock::client::dialect {

namespace {

std::string doubleQuoted(std::string_view name) {
  std::string out = "\"";
  for (const char c : name) {
    out.push_back(c);
    if (c == '"') out.push_back('"');
  }
  return out + "\"";
}

// SQL Server compares names without regard to case; PostgreSQL folds bare
// names to lower case (ASCII letters only), so quoted ones are folded alike.
void foldQuotedNames(std::vector<Token>& tokens) {
  for (Token& t : tokens) {
    if (t.kind == Token::Kind::QuotedName) {
      t.text = doubleQuoted(lowerCase(nameOf(t)));
    } else if (isKeyword(t, "true") || isKeyword(t, "false")) {
      // No literals on SQL Server but names, which it refuses as columns it
      // does not know; PostgreSQL would read them as booleans.
      t = {Token::Kind::QuotedName, doubleQuoted(lowerCase(t.text))};
    }
  }
}

// Bits are booleans here. A literal stored into a bit, or a string compared
// with one, becomes TRUE or FALSE as SQL Server converts it; a bit compared
// with a number is compared as the number 1 or 0, since SQL Server converts
// the bit to the number's type there.
// Ints keep whole numbers: PostgreSQL would round a fraction that SQL Server
// cuts off, and the strings SQL Server converts to ints are written as the
// numbers they stand for ('' is 0 there).
void convertColumnLiterals(std::vector<Token>& tokens, const RegisterSchema& schema) {
  const std::vector<ColumnLiteral> found = findColumnLiterals(tokens, schema);
  std::set<std::size_t> castColumns;  // first token positions of the bits compared as numbers
  for (const ColumnLiteral& f : found) {
    Token& literal = tokens[f.literal];
    const bool isString = literal.kind == Token::Kind::String;
    const bool negative = f.sign != ColumnLiteral::kNone && tokens[f.sign].text == "-";
    if (f.kind == ColumnKind::Bit) {
      if (isString) {
        literal.text = bitOfString(literal) ? "TRUE" : "FALSE";
      } else if (f.stored) {
        literal.text = bitOfNumber(literal.text) ? "TRUE" : "FALSE";
        if (f.sign != ColumnLiteral::kNone) tokens[f.sign].text.clear();
      } else if (f.columnFirst != ColumnLiteral::kNone) {
        castColumns.insert(f.columnFirst);
      }
    } else if (f.kind == ColumnKind::Int) {
      if (isString) {
        literal.text = intOfString(literal);
      } else if (f.stored) {
        if (const std::optional<std::string> whole = intOfNumber(literal.text, negative)) {
          literal.text = *whole;
          if (f.sign != ColumnLiteral::kNone) tokens[f.sign].text.clear();
        }
      }
    }
  }
  for (const ColumnLiteral& f : found) {
    if (f.kind != ColumnKind::Bit || !castColumns.contains(f.columnFirst)) continue;
    castColumns.erase(f.columnFirst);
    tokens[f.columnFirst].text.insert(0, "CAST(");
    tokens[f.columnLast].text += " AS integer)";
  }
}

// The significant index of the ")" that closes the "(" at significant
// index k; sig.size() when none does.
std::size_t closingParenthesis(const std::vector<Token>& tokens,
                               const std::vector<std::size_t>& sig, std::size_t k) {
  int depth = 0;
  for (std::size_t i = k; i < sig.size(); ++i) {
    if (isSymbol(tokens[sig[i]], "(")) ++depth;
    if (isSymbol(tokens[sig[i]], ")") && --depth == 0) return i;
  }
  return sig.size();
}

// Count(...) is an int on SQL Server, a bigint here. Callers read a count
// as the int it is there.
// LIKE has no escape character on SQL Server; here a backslash is one unless
// ESCAPE says otherwise.
void matchServerFunctions(std::vector<Token>& tokens) {
  const std::vector<std::size_t> sig = significantPositions(tokens);
  for (std::size_t k = 0; k < sig.size(); ++k) {
    const Token& t = tokens[sig[k]];
    const bool qualified = k > 0 && isSymbol(tokens[sig[k - 1]], ".");
    if (isKeyword(t, "COUNT") && !qualified && k + 1 < sig.size() &&
        isSymbol(tokens[sig[k + 1]], "(")) {
      const std::size_t close = closingParenthesis(tokens, sig, k + 1);
      if (close == sig.size()) continue;
      tokens[sig[k]].text.insert(0, "CAST(");
      tokens[sig[close]].text += " AS integer)";
    } else if (isKeyword(t, "LIKE") && k + 1 < sig.size() &&
               tokens[sig[k + 1]].kind == Token::Kind::String &&
               !(k + 2 < sig.size() && isKeyword(tokens[sig[k + 2]], "ESCAPE"))) {
      tokens[sig[k + 1]].text += " ESCAPE ''";
    }
  }
}

// SQL Server's Unicode literal; PostgreSQL's literals are Unicode already,
// and its N'' is a blank-padded character string that compares with case.
// The N becomes a blank, not nothing: 'O'N'Brien' is two literals, and must
// not become the one literal 'O''Brien'.
void dropUnicodePrefixes(std::vector<Token>& tokens) {
  for (Token& t : tokens) {
    if (t.kind == Token::Kind::String && (t.text.front() == 'N' || t.text.front() == 'n'))
      t.text.front() = ' ';
  }
}

}  // namespace

std::string toPostgresDialect(std::string_view statement, const RegisterSchema& schema) {
  if (statement.find('\0') != std::string_view::npos) refuse(kNulCharacterText);
  std::vector<Token> tokens = tokenize(statement);
  // Moves tokens; every later step edits texts in place only.
  moveTopToLimit(tokens);
  foldQuotedNames(tokens);
  rewriteDateLiterals(tokens, schema);
  // Reads names and literals before the edits below wrap any of them.
  convertColumnLiterals(tokens, schema);
  matchServerFunctions(tokens);
  dropUnicodePrefixes(tokens);
  return joinTokens(tokens);
}

}  // namespace varnock::client::dialect
