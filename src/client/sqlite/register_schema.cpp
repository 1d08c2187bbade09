#include "client/sqlite/register_schema.h"

#include "automation/text.h"
#include "client/client.h"
#include "client/sqlite/declared_types.h"
#include "client/sqlite/sqlite_errors.h"
#include "client/sqlite/sqlite_handles.h"

namespace varnock::client::sqlite {

namespace {

std::string textOf(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return text == nullptr ? std::string() : std::string(text);
}

}  // namespace

RegisterSchema RegisterSchema::read(sqlite3* db) {
  static constexpr const char* kColumns =
      "SELECT m.name, c.name, c.type FROM sqlite_master AS m, pragma_table_info(m.name) AS c "
      "WHERE m.type = 'table' ORDER BY m.name, c.cid";
  sqlite3_stmt* raw = nullptr;
  const int prepared = sqlite3_prepare_v2(db, kColumns, -1, &raw, nullptr);
  const StatementHandle statement(raw);
  if (prepared != SQLITE_OK) fail(kCannotOpen, sqlite3_errmsg(db));
  RegisterSchema schema;
  int stepped = SQLITE_ROW;
  while ((stepped = sqlite3_step(statement.get())) == SQLITE_ROW) {
    schema.addColumn(textOf(statement.get(), 0), textOf(statement.get(), 1),
                     textOf(statement.get(), 2));
  }
  if (stepped != SQLITE_DONE) fail(kCannotOpen, sqlite3_errmsg(db));
  return schema;
}

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

}  // namespace varnock::client::sqlite
