// The embedded SQLite provider: "Provider=SQLite;Data Source=PATH". It reads
// the SQL Server dialect that record objects send and keeps the register an
// ordinary SQLite database.
#pragma once

#include <string>

namespace varnock::client::sqlite {

// Registers the provider under the name "SQLite".
void registerSqliteProvider();

}  // namespace varnock::client::sqlite
