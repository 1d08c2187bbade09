// SPDX-License-Identifier: MIT
// Creating a register: the client makes the database, the catalogue's DDL for
// the database's kind fills it.
#include "client/client.h"
#include "client/connection_string.h"
#include "register/ddl.h"
#include "varnock/automation_error.h"
#include "varnock/register.h"

namespace varnock {

namespace {

constexpr const char* kRegisterSource = "Varnock.Register";

std::string registerScript(std::string_view databaseKind) {
  if (databaseKind == "SQLite") return schema::registerDdl(schema::Dialect::Sqlite);
  if (databaseKind == "SQL Server") return schema::registerDdl(schema::Dialect::SqlServer);
  if (databaseKind == "PostgreSQL") return schema::registerDdl(schema::Dialect::Postgres);
  throw AutomationError(
      client::kCannotOpen,
      "A register cannot be created on a database of kind " + std::string(databaseKind) + ".",
      kRegisterSource);
}

}  // namespace

std::string registerConnectionString(const std::string& path) {
  return "Provider=SQLite;Data Source=" + client::ConnectionString::valueText(path);
}

std::string createRegister(const std::string& path) {
  if (path.empty()) {
    throw AutomationError(client::kCannotOpen, "A register needs the path of its file.",
                          kRegisterSource);
  }
  std::string connectionString = registerConnectionString(path);
  client::create(connectionString, registerScript);
  return connectionString;
}

void createRegisterIn(const std::string& connectionString) {
  client::create(connectionString, registerScript);
}

}  // namespace varnock
