#include "client/dialect/register_schema.h"

#include "automation/text.h"
#include "client/dialect/declared_types.h"

namespace varnock::client::dialect {

void RegisterSchema::addColumn(std::string_view table, std::string_view column,
                               std::string_view declaredType) {
  tables_[lowerCase(table)].push_back(
      {std::string(column), declaresType(declaredType, "smalldatetime")});
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
  for (const Column& c : columnsOf(table)) {
    if (equalsIgnoringCase(c.name, column)) return c.isDate;
  }
  return false;
}

}  // namespace varnock::client::dialect
