// SPDX-License-Identifier: MIT
#include "client/dialect/sql_tokens.h"

#include "automation/text.h"

namespace varnock::client::dialect {

namespace {

bool isDigit(char c) noexcept {
  return c >= '0' && c <= '9';
}

bool isHexDigit(char c) noexcept {
  return isDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

bool isSpace(char c) noexcept {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

// Names may hold letters, digits and _ @ # $, and any character beyond ASCII.
bool startsWord(char c) noexcept {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '@' || c == '#' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool continuesWord(char c) noexcept {
  return startsWord(c) || isDigit(c) || c == '$';
}

// The end of a run quoted by `close`, where a doubled `close` stands for one.
std::size_t endOfQuoted(std::string_view s, std::size_t open, char close) noexcept {
  std::size_t i = open + 1;
  while (i < s.size()) {
    if (s[i] == close) {
      if (i + 1 < s.size() && s[i + 1] == close) {
        i += 2;
        continue;
      }
      return i + 1;
    }
    ++i;
  }
  return s.size();  // unterminated: SQLite reports it
}

std::size_t endOfNumber(std::string_view s, std::size_t i) noexcept {
  if (s[i] == '0' && i + 2 < s.size() && (s[i + 1] == 'x' || s[i + 1] == 'X') &&
      isHexDigit(s[i + 2])) {
    i += 2;
    while (i < s.size() && isHexDigit(s[i]))
      ++i;
    return i;
  }
  while (i < s.size() && isDigit(s[i]))
    ++i;
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && isDigit(s[i]))
      ++i;
  }
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
    if (j < s.size() && isDigit(s[j])) {
      i = j;
      while (i < s.size() && isDigit(s[i]))
        ++i;
    }
  }
  return i;
}

std::size_t endOfSymbol(std::string_view s, std::size_t i) noexcept {
  static constexpr std::string_view kPairs[] = {"<=", ">=", "<>", "!=", "==", "||", "<<", ">>"};
  for (const std::string_view pair : kPairs) {
    if (s.substr(i, 2) == pair) return i + 2;
  }
  return i + 1;
}

std::string undoubled(std::string_view inner, char quote) {
  std::string out;
  out.reserve(inner.size());
  for (std::size_t i = 0; i < inner.size(); ++i) {
    out.push_back(inner[i]);
    if (inner[i] == quote && i + 1 < inner.size() && inner[i + 1] == quote) ++i;
  }
  return out;
}

}  // namespace

TokenSpan nextToken(std::string_view sql, std::size_t at) {
  const std::size_t i = at;
  const char c = sql[i];
  const char next = i + 1 < sql.size() ? sql[i + 1] : '\0';
  Token::Kind kind = Token::Kind::Symbol;
  std::size_t end = i + 1;
  if (isSpace(c)) {
    kind = Token::Kind::Space;
    while (end < sql.size() && isSpace(sql[end]))
      ++end;
  } else if (c == '-' && next == '-') {
    kind = Token::Kind::Comment;
    end = sql.find('\n', i);
    if (end == std::string_view::npos) end = sql.size();
  } else if (c == '/' && next == '*') {
    kind = Token::Kind::Comment;
    end = sql.find("*/", i + 2);
    end = end == std::string_view::npos ? sql.size() : end + 2;
  } else if (c == '\'') {
    kind = Token::Kind::String;
    end = endOfQuoted(sql, i, '\'');
  } else if ((c == 'N' || c == 'n') && next == '\'') {
    kind = Token::Kind::String;
    end = endOfQuoted(sql, i + 1, '\'');
  } else if (c == '[') {
    kind = Token::Kind::QuotedName;
    end = endOfQuoted(sql, i, ']');
  } else if (c == '"' || c == '`') {
    kind = Token::Kind::QuotedName;
    end = endOfQuoted(sql, i, c);
  } else if (isDigit(c) || (c == '.' && isDigit(next))) {
    kind = Token::Kind::Number;
    end = endOfNumber(sql, i);
  } else if (startsWord(c)) {
    kind = Token::Kind::Word;
    while (end < sql.size() && continuesWord(sql[end]))
      ++end;
  } else {
    end = endOfSymbol(sql, i);
  }
  return {kind, end};
}

std::vector<Token> tokenize(std::string_view sql) {
  std::vector<Token> tokens;
  for (std::size_t i = 0; i < sql.size();) {
    const TokenSpan span = nextToken(sql, i);
    tokens.push_back({span.kind, std::string(sql.substr(i, span.end - i))});
    i = span.end;
  }
  return tokens;
}

std::string stringValue(std::string_view literal) {
  std::string_view t = literal;
  if (!t.empty() && t.front() != '\'') t.remove_prefix(1);  // the N of N'text' (or its blank)
  const bool closed = t.size() >= 2 && t.back() == '\'';
  return undoubled(t.substr(1, t.size() - (closed ? 2 : 1)), '\'');
}

std::string joinTokens(const std::vector<Token>& tokens) {
  std::string text;
  for (const Token& t : tokens)
    text += t.text;
  return text;
}

bool isSignificant(const Token& token) noexcept {
  return token.kind != Token::Kind::Space && token.kind != Token::Kind::Comment;
}

bool isName(const Token& token) noexcept {
  return token.kind == Token::Kind::Word || token.kind == Token::Kind::QuotedName;
}

bool isKeyword(const Token& token, std::string_view keyword) noexcept {
  return token.kind == Token::Kind::Word && equalsIgnoringCase(token.text, keyword);
}

bool isSymbol(const Token& token, std::string_view symbol) noexcept {
  return token.kind == Token::Kind::Symbol && token.text == symbol;
}

std::string nameOf(const Token& token) {
  if (token.kind != Token::Kind::QuotedName) return token.text;
  const std::string_view t = token.text;
  const char close = t.front() == '[' ? ']' : t.front();
  const bool closed = t.size() >= 2 && t.back() == close;
  return undoubled(t.substr(1, t.size() - (closed ? 2 : 1)), close);
}

std::string stringValue(const Token& token) {
  return stringValue(token.text);
}

std::string quoted(std::string_view text) {
  std::string out = "'";
  for (const char c : text) {
    out.push_back(c);
    if (c == '\'') out.push_back('\'');
  }
  out.push_back('\'');
  return out;
}

std::vector<std::size_t> significantPositions(const std::vector<Token>& tokens) {
  std::vector<std::size_t> positions;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (isSignificant(tokens[i])) positions.push_back(i);
  }
  return positions;
}

}  // namespace varnock::client::dialect
