// SPDX-License-Identifier: MIT
#include "client/dialect/parameterised_statement.h"

#include <charconv>
#include <vector>

#include "automation/text.h"
#include "client/dialect/sql_tokens.h"

namespace varnock::client::dialect {

namespace {

// Where, at one depth of parentheses, the scan is.
struct Clause {
  bool resultColumns = false;  // between SELECT and the end of its column list
  bool ordering = false;       // in ORDER BY or GROUP BY
  // Inside a result column, however deep: a sub-query there is part of the
  // column's text, which names the column.
  bool withinResultColumn = false;
};

bool endsResultColumns(std::string_view word) {
  for (const char* keyword : {"from", "where", "group", "having", "order", "limit", "union",
                              "intersect", "except", "window", "values"}) {
    if (equalsIgnoringCase(word, keyword)) return true;
  }
  return false;
}

bool endsOrdering(std::string_view word) {
  for (const char* keyword :
       {"limit", "offset", "having", "union", "intersect", "except", "window"}) {
    if (equalsIgnoringCase(word, keyword)) return true;
  }
  return false;
}

bool readsOrWritesRows(std::string_view word) {
  for (const char* keyword : {"select", "insert", "update", "delete", "with", "replace"}) {
    if (equalsIgnoringCase(word, keyword)) return true;
  }
  return false;
}

// A whole number in plain decimal digits that fits 64 bits.
bool wholeNumber(std::string_view text, std::int64_t& value) {
  for (const char c : text) {
    if (c < '0' || c > '9') return false;
  }
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size();
}

}  // namespace

ParameterisedStatement parameterise(std::string_view statement, int firstNumber) {
  ParameterisedStatement result;
  std::vector<Clause> clauses(1);
  bool first = true;
  bool afterAs = false;
  bool afterOrderOrGroup = false;
  bool unchanged = false;
  // What the previous token was and where it ended, to tell "?1", "X'00'"
  // and "N'text'" from literals standing alone.
  Token::Kind previousKind = Token::Kind::Space;
  std::string_view previousText;
  std::size_t copiedUpTo = 0;
  for (std::size_t at = 0; at < statement.size();) {
    const TokenSpan span = nextToken(statement, at);
    const std::string_view text = statement.substr(at, span.end - at);
    const Token::Kind kind = span.kind;
    const std::size_t start = at;
    at = span.end;
    if (kind == Token::Kind::Space || kind == Token::Kind::Comment) {
      previousKind = kind;
      previousText = text;
      continue;
    }
    if (first) {
      first = false;
      if (kind != Token::Kind::Word || !readsOrWritesRows(text)) unchanged = true;
    }
    if (unchanged) break;
    Clause& clause = clauses.back();
    bool literal = false;
    LiteralValue value{LiteralValue::Kind::Text, {}, 0};
    if (kind == Token::Kind::Word) {
      if (equalsIgnoringCase(text, "select")) {
        clause = Clause{true, false, clause.withinResultColumn};
      } else if (equalsIgnoringCase(text, "by") && afterOrderOrGroup) {
        clause.ordering = true;
      } else if (clause.resultColumns && endsResultColumns(text)) {
        clause.resultColumns = false;
      } else if (clause.ordering && endsOrdering(text)) {
        clause.ordering = false;
      }
      afterOrderOrGroup = equalsIgnoringCase(text, "order") || equalsIgnoringCase(text, "group");
    } else {
      afterOrderOrGroup = false;
    }
    if (kind == Token::Kind::Symbol) {
      if (text == "(") {
        // An expression in parentheses is part of its clause: a result
        // column's text is its name however deep its literals are. A
        // sub-query's SELECT starts a clause of its own.
        Clause inner = clauses.back();
        inner.withinResultColumn = inner.withinResultColumn || inner.resultColumns;
        clauses.push_back(inner);
      } else if (text == ")" && clauses.size() > 1) {
        clauses.pop_back();
      } else if (text == ";") {
        clauses.back() = Clause{};
      }
    }
    const bool adjacent = previousKind != Token::Kind::Space &&
                          previousKind != Token::Kind::Comment && !previousText.empty() &&
                          previousText.data() + previousText.size() == text.data();
    const Clause& here = clauses.back();  // parentheses above may have moved it
    const bool placeable =
        !here.resultColumns && !here.ordering && !here.withinResultColumn && !afterAs;
    if (placeable && kind == Token::Kind::String && text.front() == '\'' &&
        !(adjacent && previousKind == Token::Kind::Word)) {
      literal = true;
      value.text = stringValue(text);
    } else if (placeable && kind == Token::Kind::Number &&
               !(adjacent && (previousText == "?" || previousKind == Token::Kind::Word)) &&
               wholeNumber(text, value.integer)) {
      literal = true;
      value.kind = LiteralValue::Kind::Integer;
    }
    afterAs = kind == Token::Kind::Word && equalsIgnoringCase(text, "as");
    previousKind = kind;
    previousText = text;
    if (!literal) continue;
    result.text.append(statement.substr(copiedUpTo, start - copiedUpTo));
    result.text += '?';
    result.text += std::to_string(firstNumber + static_cast<int>(result.values.size()));
    copiedUpTo = at;
    result.values.push_back(std::move(value));
  }
  if (unchanged) return {std::string(statement), {}};
  result.text.append(statement.substr(copiedUpTo));
  return result;
}

}  // namespace varnock::client::dialect
