// SPDX-License-Identifier: MIT
#include "client/odbc/statement_split.h"

#include "automation/text.h"
#include "client/dialect/sql_tokens.h"

namespace varnock::client::odbc {

using dialect::isKeyword;
using dialect::isSignificant;
using dialect::isSymbol;
using dialect::nameOf;
using dialect::Token;
using dialect::tokenize;

namespace {

// The significant tokens of a text, in order.
std::vector<Token> significantTokens(std::string_view sql) {
  std::vector<Token> tokens = tokenize(sql);
  std::erase_if(tokens, [](const Token& token) { return !isSignificant(token); });
  return tokens;
}

// Without the blanks and line breaks around it.
std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

}  // namespace

std::vector<std::string_view> splitStatements(std::string_view sql) {
  std::vector<std::string_view> statements;
  std::size_t start = 0;
  bool significant = false;          // the current statement holds more than blanks
  std::vector<std::string> opening;  // its first words, to tell a trigger
  int depth = 0;                     // BEGIN and CASE blocks open in a trigger body
  auto finish = [&](std::size_t end) {
    if (significant) statements.push_back(trimmed(sql.substr(start, end - start)));
    significant = false;
    opening.clear();
    depth = 0;
  };
  for (std::size_t at = 0; at < sql.size();) {
    const dialect::TokenSpan span = dialect::nextToken(sql, at);
    const Token token{span.kind, std::string(sql.substr(at, span.end - at))};
    const std::size_t tokenStart = at;
    at = span.end;
    if (!isSignificant(token)) continue;
    if (depth == 0 && isSymbol(token, ";")) {
      finish(tokenStart);
      start = at;
      continue;
    }
    significant = true;
    if (token.kind != Token::Kind::Word) continue;
    if (opening.size() < 3) opening.push_back(lowerCase(token.text));
    const bool trigger =
        opening.size() >= 2 && opening[0] == "create" &&
        (opening[1] == "trigger" || (opening.size() == 3 && opening[2] == "trigger"));
    if (trigger && isKeyword(token, "BEGIN")) {
      ++depth;
    } else if (depth > 0 && isKeyword(token, "CASE")) {
      ++depth;
    } else if (depth > 0 && isKeyword(token, "END")) {
      --depth;
    }
  }
  finish(sql.size());
  return statements;
}

std::string withoutComments(std::string_view sql) {
  std::string text;
  text.reserve(sql.size());
  for (std::size_t at = 0; at < sql.size();) {
    const dialect::TokenSpan span = dialect::nextToken(sql, at);
    if (span.kind == Token::Kind::Comment) {
      text += ' ';  // a line comment's end of line is a token of its own, and stays
    } else {
      text.append(sql.substr(at, span.end - at));
    }
    at = span.end;
  }
  return text;
}

std::vector<std::string_view> splitBatches(std::string_view script) {
  std::vector<std::string_view> batches;
  std::size_t start = 0;
  auto finish = [&](std::size_t end) {
    const std::string_view batch = script.substr(start, end - start);
    if (!significantTokens(batch).empty()) batches.push_back(batch);
  };
  for (std::size_t lineStart = 0; lineStart <= script.size();) {
    std::size_t lineEnd = script.find('\n', lineStart);
    if (lineEnd == std::string_view::npos) lineEnd = script.size();
    std::string_view line = script.substr(lineStart, lineEnd - lineStart);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (equalsIgnoringCase(trimBlanks(line), "GO")) {
      finish(lineStart);
      start = std::min(lineEnd + 1, script.size());
    }
    lineStart = lineEnd + 1;
  }
  finish(script.size());
  return batches;
}

bool isTransactionControl(std::string_view statement) {
  const std::vector<Token> tokens = significantTokens(statement);
  if (tokens.empty()) return false;
  const Token& first = tokens.front();
  if (isKeyword(first, "COMMIT") || isKeyword(first, "ROLLBACK")) return true;
  if (isKeyword(first, "START")) return tokens.size() > 1 && isKeyword(tokens[1], "TRANSACTION");
  // END alone ends SQLite's transaction; BEGIN alone or with its transaction
  // words begins one (BEGIN ... END blocks of other statements do not start
  // a statement).
  if (!isKeyword(first, "BEGIN") && !isKeyword(first, "END")) return false;
  if (tokens.size() == 1) return true;
  for (const char* word : {"TRANSACTION", "TRAN", "WORK", "DEFERRED", "IMMEDIATE", "EXCLUSIVE"}) {
    if (isKeyword(tokens[1], word)) return true;
  }
  return false;
}

std::vector<std::string> createdTables(std::string_view script) {
  const std::vector<Token> tokens = significantTokens(script);
  std::vector<std::string> tables;
  for (std::size_t i = 0; i + 2 < tokens.size(); ++i) {
    if (!isKeyword(tokens[i], "CREATE") || !isKeyword(tokens[i + 1], "TABLE")) continue;
    std::size_t at = i + 2;
    if (at + 2 < tokens.size() && isKeyword(tokens[at], "IF") && isKeyword(tokens[at + 1], "NOT") &&
        isKeyword(tokens[at + 2], "EXISTS")) {
      at += 3;
    }
    // A qualified name ("[dbo].[Country]") names its last part.
    std::string name;
    while (at < tokens.size() && dialect::isName(tokens[at])) {
      name = nameOf(tokens[at]);
      if (at + 1 < tokens.size() && isSymbol(tokens[at + 1], ".")) {
        at += 2;
      } else {
        break;
      }
    }
    if (!name.empty()) tables.push_back(name);
  }
  return tables;
}

}  // namespace varnock::client::odbc
