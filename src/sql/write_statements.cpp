// SPDX-License-Identifier: MIT
// The INSERT, UPDATE and DELETE texts, rendered from column values.
#include <algorithm>
#include <optional>
#include <variant>
#include <vector>

#include "sql/literals.h"
#include "sql/statements.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"

namespace varnock::sql {

namespace {

using catalogue::Column;
using catalogue::SqlType;

std::string bracketed(const Column& c) {
  return "[" + std::string(c.field) + "]";
}

bool isKey(const catalogue::Table& t, std::size_t position) {
  if (t.wholeRowKey) return false;  // such tables have no key an update could name
  for (const std::uint8_t k : t.keyColumns) {
    if (k == position) return true;
  }
  return false;
}

// One column's value as the writers write it. A text is quoted, with its
// apostrophes doubled, only as it is appended to the statement, and a text
// value is read where it is held: a large text is copied once, into the
// statement, and the statement is allocated once at its full size.
class Rendered {
 public:
  // A text column's value: the text of the value, quoted.
  static Rendered quoted(const Variant& v) {
    Rendered r;
    if (v.isString()) {
      r.text_ = &v.asString();
    } else {
      r.own_ = toText(v);
      r.text_ = &r.own_;
    }
    r.quoted_ = true;
    return r;
  }
  // Any other value: written as it stands ("NULL", "42", "1", "'2000/5/4'").
  static Rendered plain(std::string text) {
    Rendered r;
    r.own_ = std::move(text);
    return r;
  }
  Rendered(Rendered&& other) noexcept
      : own_(std::move(other.own_)),
        text_(other.text_ == &other.own_ ? &own_ : other.text_),
        quoted_(other.quoted_) {}
  Rendered(const Rendered&) = delete;
  Rendered& operator=(const Rendered&) = delete;
  Rendered& operator=(Rendered&&) = delete;

  std::size_t size() const {
    if (!quoted_) return own_.size();
    std::size_t apostrophes = 0;
    for (const char c : *text_)
      apostrophes += c == '\'' ? 1 : 0;
    return text_->size() + apostrophes + 2;
  }
  void appendTo(std::string& out) const {
    if (!quoted_) {
      out += own_;
      return;
    }
    out += '\'';
    for (std::size_t at = 0; at < text_->size();) {
      const std::size_t apostrophe = std::min(text_->find('\'', at), text_->size());
      out.append(*text_, at, apostrophe - at);
      if (apostrophe < text_->size()) out += "''";
      at = apostrophe + 1;
    }
    out += '\'';
  }

 private:
  Rendered() = default;
  std::string own_;
  const std::string* text_ = &own_;
  bool quoted_ = false;
};

constexpr bool kInserting = true;
constexpr bool kUpdating = false;

// A value that is not Null, as insert or update writes it: insert writes a
// date with its meridiem and leaves out (nullopt) one of day 0 or earlier;
// update writes NULL for such a date, for an empty text in a date column and
// for an int whose text is empty.
std::optional<Rendered> renderedValue(const Column& c, const Variant& v, bool inserting) {
  switch (c.type) {
    case SqlType::Smalldatetime: {
      const auto date = dateText(v, inserting);
      if (inserting && !date) return std::nullopt;
      if (!inserting && (!date || textOf(v).empty())) return Rendered::plain("NULL");
      return Rendered::plain("'" + *date + "'");
    }
    case SqlType::Int: {
      std::string number = toText(v);
      return Rendered::plain(!inserting && number.empty() ? "NULL" : std::move(number));
    }
    case SqlType::Bit:
      return Rendered::plain(std::string(bitText(v)));
    case SqlType::Nvarchar:
    case SqlType::Ntext:
      return Rendered::quoted(v);
  }
  return std::nullopt;
}

// The pieces of a statement, joined into one string of the exact size.
std::string joined(const std::vector<std::variant<std::string_view, const Rendered*>>& pieces) {
  std::size_t size = 0;
  for (const auto& piece : pieces) {
    size += std::holds_alternative<std::string_view>(piece)
                ? std::get<std::string_view>(piece).size()
                : std::get<const Rendered*>(piece)->size();
  }
  std::string statement;
  statement.reserve(size);
  for (const auto& piece : pieces) {
    if (std::holds_alternative<std::string_view>(piece)) {
      statement += std::get<std::string_view>(piece);
    } else {
      std::get<const Rendered*>(piece)->appendTo(statement);
    }
  }
  return statement;
}

}  // namespace

std::string insert(const catalogue::Table& t, const std::vector<Variant>& values) {
  std::string columns;
  std::vector<Rendered> rendered;
  for (std::size_t i = 0; i < t.columns.size(); ++i) {
    const Column& c = t.columns[i];
    const Variant& v = values[i];
    if (v.isNull()) continue;
    std::optional<Rendered> value = renderedValue(c, v, kInserting);
    if (!value) continue;
    rendered.push_back(std::move(*value));
    columns.append(bracketed(c)).append(", ");
  }
  columns = withoutLast(std::move(columns), 2);
  const std::string head = "INSERT INTO " + tableRef(t) + " (" + columns + ") VALUES (";
  std::vector<std::variant<std::string_view, const Rendered*>> pieces{head};
  for (std::size_t i = 0; i < rendered.size(); ++i) {
    if (i > 0) pieces.emplace_back(", ");
    pieces.emplace_back(&rendered[i]);
  }
  pieces.emplace_back(")");
  return joined(pieces);
}

std::string update(const catalogue::Table& t, const std::vector<Variant>& values) {
  std::string where;
  std::vector<std::string> names;
  std::vector<Rendered> rendered;
  for (std::size_t i = 0; i < t.columns.size(); ++i) {
    const Column& c = t.columns[i];
    const Variant& v = values[i];
    if (isKey(t, i)) where.append(bracketed(c)).append(" = '").append(textOf(v)).append("' AND ");
    names.push_back(bracketed(c) + " = ");
    rendered.push_back(v.isNull() ? Rendered::plain("NULL")
                                  : std::move(*renderedValue(c, v, kUpdating)));
  }
  where = withoutLast(std::move(where), 5);
  const std::string head = "UPDATE " + tableRef(t) + " SET ";
  const std::string tail = " WHERE " + where;
  std::vector<std::variant<std::string_view, const Rendered*>> pieces{head};
  for (std::size_t i = 0; i < rendered.size(); ++i) {
    if (i > 0) pieces.emplace_back(", ");
    pieces.emplace_back(names[i]);
    pieces.emplace_back(&rendered[i]);
  }
  if (rendered.empty()) {  // no column at all: the cut of the list comes out negative
    throw AutomationError::runtime(AutomationError::kInvalidProcedureCall);
  }
  pieces.emplace_back(tail);
  return joined(pieces);
}

std::string deleteByKey(const catalogue::Table& t, const std::vector<Variant>& values) {
  std::vector<std::string> keys;
  for (const std::uint8_t k : t.keyColumns)
    keys.push_back(textOf(values[k]));
  return "DELETE FROM " + tableRef(t) + " WHERE " + keyCondition(t, keys);
}

std::string deleteWhere(const catalogue::Table& t, std::string_view where) {
  return "DELETE FROM " + tableRef(t) + " WHERE " + std::string(where);
}

}  // namespace varnock::sql
