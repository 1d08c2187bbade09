// SPDX-License-Identifier: MIT
#include "sql/statements.h"

#include "automation/text.h"

namespace varnock::sql {

std::string tableRef(const catalogue::Table& t) {
  return "[" + std::string(t.name) + "]";
}

namespace {

// The rest of a NOT IN walk after the inner query's table.
void appendWalkTail(std::string& s, std::string_view where, std::string_view order) {
  if (!where.empty()) {
    s.append(" WHERE ").append(where);
  }
  if (!order.empty()) s.append(" ORDER BY ").append(order);
  s.append(")");
  if (!where.empty()) s.append(" AND ").append(where);
  if (!order.empty()) s.append(" ORDER BY ").append(order);
}

void appendSkip(std::string& s, const catalogue::Table& t, std::string_view skipped,
                std::string_view where, std::string_view order) {
  const std::string nav(t.navigationColumn);
  s.append(" WHERE " + nav + " NOT IN ")
      .append(" (SELECT TOP ")
      .append(skipped)
      .append(" " + nav + " FROM " + tableRef(t));
  appendWalkTail(s, where, order);
}

std::size_t findIgnoringCase(std::string_view text, std::string_view what, std::size_t from = 0) {
  if (what.size() > text.size()) return std::string_view::npos;
  for (std::size_t i = from; i + what.size() <= text.size(); ++i) {
    if (equalsIgnoringCase(text.substr(i, what.size()), what)) return i;
  }
  return std::string_view::npos;
}

// Every occurrence, matched without regard to case, left to right.
std::string replaceIgnoringCase(std::string_view text, std::string_view what,
                                std::string_view with) {
  std::string out;
  std::size_t from = 0;
  for (std::size_t at; (at = findIgnoringCase(text, what, from)) != std::string_view::npos;
       from = at + what.size()) {
    out.append(text.substr(from, at - from)).append(with);
  }
  return out.append(text.substr(from));
}

std::string replaceExact(std::string_view text, std::string_view what, std::string_view with) {
  std::string out;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(what, from)) != std::string_view::npos;
       from = at + what.size()) {
    out.append(text.substr(from, at - from)).append(with);
  }
  return out.append(text.substr(from));
}

}  // namespace

std::string keyCondition(const catalogue::Table& t, const std::vector<std::string>& keyValues) {
  std::string s;
  for (std::size_t i = 0; i < t.keyColumns.size(); ++i) {
    if (i > 0) s.append("' AND  ");
    s.append(t.columns[t.keyColumns[i]].field).append(" = '").append(keyValues[i]);
  }
  return s.append("'");
}

std::string keyLookup(const catalogue::Table& t, const std::vector<std::string>& keyValues) {
  return "SELECT * FROM " + tableRef(t) + " WHERE " + keyCondition(t, keyValues);
}

std::string conditionLookup(const catalogue::Table& t, std::string_view where) {
  return "SELECT TOP 1 * FROM " + tableRef(t) + " WHERE " + std::string(where);
}

void appendOrder(std::string& statement, std::string_view order) {
  if (!order.empty()) statement.append(" ORDER BY ").append(order);
}

std::string first(const catalogue::Table& t, std::string_view where, std::string_view order) {
  std::string s = "SELECT TOP 1 * FROM " + tableRef(t);
  if (!where.empty()) s.append(" WHERE ").append(where);
  appendOrder(s, order);
  return s;
}

std::string afterSkipping(const catalogue::Table& t, std::string_view skipped,
                          std::string_view where, std::string_view order) {
  std::string s = "SELECT TOP 1 * FROM " + tableRef(t);
  appendSkip(s, t, skipped, where, order);
  return s;
}

std::string every(const catalogue::Table& t, std::string_view limit, std::string_view skipped,
                  std::string_view where, std::string_view order) {
  std::string s = limit.empty() ? "SELECT * FROM " + tableRef(t)
                                : "SELECT TOP " + std::string(limit) + " * FROM " + tableRef(t);
  if (!skipped.empty()) {
    appendSkip(s, t, skipped, where, order);
    return s;
  }
  if (!where.empty()) s.append(" WHERE ").append(where);
  appendOrder(s, order);
  return s;
}

std::string count(const catalogue::Table& t, std::string_view where) {
  std::string s = "SELECT Count(*) AS CountResultField FROM " + tableRef(t);
  if (!where.empty()) s.append(" WHERE ").append(where);
  return s;
}

std::string reversedOrder(const catalogue::Table& t, std::string_view order) {
  if (order.empty()) return t.defaultOrder;
  std::string text(order);
  if (findIgnoringCase(text, " asc") != std::string::npos) {
    text = replaceIgnoringCase(text, " asc", " KIRNA_ASC");
  }
  if (findIgnoringCase(text, " desc") != std::string::npos) {
    text = replaceIgnoringCase(text, " desc", " KIRNA_DESC");
  }
  text = replaceExact(text, " KIRNA_ASC", " DESC");
  text = replaceExact(text, " KIRNA_DESC", " ASC");
  if (findIgnoringCase(text, " asc") == std::string::npos &&
      findIgnoringCase(text, " desc") == std::string::npos) {
    text.append(" DESC");
  }
  return text;
}

}  // namespace varnock::sql
