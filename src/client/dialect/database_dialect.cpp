#include "client/dialect/database_dialect.h"

#include "automation/text.h"
#include "client/dialect/sqlite_dialect.h"

namespace varnock::client::dialect {

namespace {

// SQL Server runs its own dialect: statements go as they were built.
std::string asBuilt(std::string_view statement, const RegisterSchema&) {
  return std::string(statement);
}

struct NamedDialect {
  std::string_view databaseName;  // as the driver reports it
  DatabaseDialect dialect;
};

constexpr NamedDialect kDialects[] = {
    {"Microsoft SQL Server", {"SQL Server", "", asBuilt}},
    {"SQLite",
     {"SQLite",
      "SELECT m.name, c.name, c.type FROM sqlite_master AS m, pragma_table_info(m.name) AS c "
      "WHERE m.type = 'table' ORDER BY m.name, c.cid",
      toSqliteDialect}},
};

}  // namespace

const DatabaseDialect* dialectForDatabase(std::string_view databaseName) {
  for (const NamedDialect& named : kDialects) {
    if (equalsIgnoringCase(named.databaseName, databaseName)) return &named.dialect;
  }
  return nullptr;
}

}  // namespace varnock::client::dialect
