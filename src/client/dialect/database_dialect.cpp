// SPDX-License-Identifier: MIT
#include "client/dialect/database_dialect.h"

#include "automation/text.h"
#include "client/dialect/postgres_dialect.h"
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
    // The register's columns in the current schema, with SQL Server's type
    // names: the text and date domains carry them, bits and ints are
    // PostgreSQL's own types.
    {"PostgreSQL",
     {"PostgreSQL",
      "SELECT c.table_name, c.column_name, "
      "CASE WHEN c.domain_name IS NOT NULL THEN c.domain_name "
      "WHEN c.data_type = 'boolean' THEN 'bit' WHEN c.data_type = 'integer' THEN 'int' "
      "ELSE c.data_type END "
      "FROM information_schema.columns AS c JOIN information_schema.tables AS t "
      "ON t.table_schema = c.table_schema AND t.table_name = c.table_name "
      "WHERE c.table_schema = current_schema() AND t.table_type = 'BASE TABLE' "
      "ORDER BY c.table_name, c.ordinal_position",
      toPostgresDialect}},
};

}  // namespace

const DatabaseDialect* dialectForDatabase(std::string_view databaseName) {
  for (const NamedDialect& named : kDialects) {
    if (equalsIgnoringCase(named.databaseName, databaseName)) return &named.dialect;
  }
  return nullptr;
}

}  // namespace varnock::client::dialect
