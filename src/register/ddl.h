// SPDX-License-Identifier: MIT
// The register's DDL, made from the table catalogue: the tables with their
// columns, types, lengths and nullability, the keys, the foreign keys that
// the parent relations imply and the indexes beside them. One text per kind
// of database; schema/ holds each as generate_schema writes it.
//
//   std::ofstream("sqlite.sql") << schema::registerDdl(schema::Dialect::Sqlite);
#pragma once

#include <string>

namespace varnock::schema {

enum class Dialect { Sqlite, SqlServer, Postgres };

// The whole script that creates an empty register, comments included: for
// SQLite one transaction run by createRegister, for SQL Server batches
// separated by GO for sqlcmd, for PostgreSQL one transaction for psql or a
// provider to run in the register's database.
std::string registerDdl(Dialect dialect);

}  // namespace varnock::schema
