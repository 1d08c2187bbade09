// SPDX-License-Identifier: MIT
#include "client/statement_kind.h"

#include <string>

#include "automation/text.h"

namespace varnock::client {

namespace {

bool isLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// The first word, past blanks, comments and opening parentheses.
std::string_view firstWord(std::string_view statement) {
  std::size_t i = 0;
  while (i < statement.size()) {
    const char c = statement[i];
    if (c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '(') {
      ++i;
    } else if (statement.substr(i, 2) == "--") {
      i = statement.find('\n', i);
    } else if (statement.substr(i, 2) == "/*") {
      const std::size_t end = statement.find("*/", i + 2);
      i = end == std::string_view::npos ? end : end + 2;
    } else {
      break;
    }
  }
  if (i >= statement.size()) return {};
  std::size_t end = i;
  while (end < statement.size() && isLetter(statement[end]))
    ++end;
  return statement.substr(i, end - i);
}

}  // namespace

bool readsOrWritesRows(std::string_view statement) {
  const std::string_view word = firstWord(statement);
  for (const char* kind : {"select", "insert", "update", "delete", "with"}) {
    if (equalsIgnoringCase(word, kind)) return true;
  }
  return false;
}

}  // namespace varnock::client
