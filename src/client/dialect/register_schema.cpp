// SPDX-License-Identifier: MIT
#include "client/dialect/register_schema.h"

#include "automation/text.h"
#include "client/dialect/declared_types.h"

namespace varnock::client::dialect {

ColumnKind kindOfType(std::string_view declaredType) {
  if (declaresType(declaredType, "smalldatetime") || declaresType(declaredType, "datetime"))
    return ColumnKind::Date;
  if (declaresType(declaredType, "bit")) return ColumnKind::Bit;
  if (declaresType(declaredType, "int")) return ColumnKind::Int;
  for (const std::string_view text : {"nvarchar", "ntext", "varchar", "text", "nchar", "char"}) {
    if (declaresType(declaredType, text)) return ColumnKind::Text;
  }
  return ColumnKind::Other;
}

void RegisterSchema::addColumn(std::string_view table, std::string_view column,
                               std::string_view declaredType) {
  tables_[lowerCase(table)].push_back({std::string(column), kindOfType(declaredType)});
}

bool RegisterSchema::hasTable(std::string_view table) const {
  return tables_.contains(lowerCase(table));
}

const std::vector<RegisterSchema::Column>& RegisterSchema::columnsOf(std::string_view table) const {
  static const std::vector<Column> kNone;
  const auto it = tables_.find(lowerCase(table));
  return it == tables_.end() ? kNone : it->second;
}

bool RegisterSchema::isDateColumn(std::string_view table, std::string_view column) const {
  return kindOf(table, column) == ColumnKind::Date;
}

ColumnKind RegisterSchema::kindOf(std::string_view table, std::string_view column) const {
  for (const Column& c : columnsOf(table)) {
    if (equalsIgnoringCase(c.name, column)) return c.kind;
  }
  return ColumnKind::Other;
}

bool RegisterSchema::hasColumn(std::string_view table, std::string_view column) const {
  for (const Column& c : columnsOf(table)) {
    if (equalsIgnoringCase(c.name, column)) return true;
  }
  return false;
}

}  // namespace varnock::client::dialect
