// SPDX-License-Identifier: MIT
// The dialects by database kind: what a provider that reaches several kinds
// of database (ODBC) needs to run SQL Server's statements on the one it has
// reached. The provider asks the driver for the database's name
// (SQL_DBMS_NAME) and gets the kind's dialect here.
#pragma once

#include <string>
#include <string_view>

#include "client/dialect/register_schema.h"

namespace varnock::client::dialect {

struct DatabaseDialect {
  // The kind, as register scripts are chosen by it: "SQL Server", "SQLite",
  // "PostgreSQL".
  std::string_view kind;
  // A query in the database's own SQL whose rows are the register's columns:
  // table name, column name, declared type in SQL Server's names (nvarchar,
  // ntext, int, bit, smalldatetime). Empty when the dialect needs no schema.
  std::string_view schemaQuery;
  // The statement in the database's own dialect. Raises StatementRefused
  // where SQL Server itself would refuse the statement.
  std::string (*translate)(std::string_view statement, const RegisterSchema& schema);
};

// The dialect of the database a driver names (SQL_DBMS_NAME: "Microsoft SQL
// Server", "SQLite", "PostgreSQL"), compared without regard to case; nullptr for a
// database Varnock cannot run its statements on.
const DatabaseDialect* dialectForDatabase(std::string_view databaseName);

}  // namespace varnock::client::dialect
