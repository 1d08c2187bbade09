// The INSERT, UPDATE and DELETE texts, rendered from column values.
#include "sql/literals.h"
#include "sql/statements.h"
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

}  // namespace

std::string insert(const catalogue::Table& t, const std::vector<Variant>& values) {
  std::string columns, rendered;
  for (std::size_t i = 0; i < t.columns.size(); ++i) {
    const Column& c = t.columns[i];
    const Variant& v = values[i];
    if (v.isNull()) continue;
    switch (c.type) {
      case SqlType::Smalldatetime: {
        const auto date = dateText(v, true);
        if (!date) continue;  // day 0 and earlier count as no date
        rendered.append("'").append(*date).append("', ");
        break;
      }
      case SqlType::Int:
        rendered.append(toText(v)).append(", ");
        break;
      case SqlType::Bit:
        rendered.append(bitText(v)).append(", ");
        break;
      case SqlType::Nvarchar:
      case SqlType::Ntext:
        rendered.append("'").append(doubledApostrophes(toText(v))).append("', ");
        break;
    }
    columns.append(bracketed(c)).append(", ");
  }
  columns = withoutLast(std::move(columns), 2);
  rendered = withoutLast(std::move(rendered), 2);
  return "INSERT INTO " + tableRef(t) + " (" + columns + ") VALUES (" + rendered + ")";
}

std::string update(const catalogue::Table& t, const std::vector<Variant>& values) {
  std::string assignments, where;
  for (std::size_t i = 0; i < t.columns.size(); ++i) {
    const Column& c = t.columns[i];
    const Variant& v = values[i];
    if (isKey(t, i)) where.append(bracketed(c)).append(" = '").append(textOf(v)).append("' AND ");
    std::string value = "NULL";
    if (!v.isNull()) {
      switch (c.type) {
        case SqlType::Smalldatetime:
          if (const auto date = dateText(v, false); date && !textOf(v).empty()) {
            value = "'" + *date + "'";
          }
          break;
        case SqlType::Int:
          if (std::string number = toText(v); !number.empty()) value = std::move(number);
          break;
        case SqlType::Bit:
          value = bitText(v);
          break;
        case SqlType::Nvarchar:
        case SqlType::Ntext:
          value = "'" + doubledApostrophes(toText(v)) + "'";
          break;
      }
    }
    assignments.append(bracketed(c)).append(" = ").append(value).append(", ");
  }
  where = withoutLast(std::move(where), 5);
  assignments = withoutLast(std::move(assignments), 2);
  return "UPDATE " + tableRef(t) + " SET " + assignments + " WHERE " + where;
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
