// The register's DDL, made from the table catalogue: the tables with their
// columns, types, lengths and nullability, the keys, the foreign keys that
// the parent relations imply and the indexes beside them. One text per kind
// of database; schema/ holds both as generate_schema writes them.
//
//   std::ofstream("sqlite.sql") << schema::registerDdl(schema::Dialect::Sqlite);
#pragma once

#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace varnock::schema {

enum class Dialect { Sqlite, SqlServer };

// The whole script that creates an empty register, comments included: for
// SQLite one transaction run by createRegister, for SQL Server batches
// separated by GO for sqlcmd.
std::string registerDdl(Dialect dialect);

// The catalogue's tables, each after every table its foreign keys refer to:
// the order in which a register's tables are made and filled.
std::vector<const catalogue::Table*> tablesParentsFirst();

}  // namespace varnock::schema
