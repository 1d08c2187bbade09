// SPDX-License-Identifier: MIT
// Creating a register over ODBC: the database itself must exist already
// (ODBC connects to databases, it does not make them); the script for its
// kind fills it.
#pragma once

#include <string>

#include "client/client.h"
#include "client/odbc/odbc_login.h"

namespace varnock::client::odbc {

// Connects, refuses a database that already holds any table the script
// creates, and runs the script that `scriptFor` gives for the database's
// kind: batch by batch between GO lines, and statement by statement where
// the driver runs one at a time (SQLite's). A script that begins its own
// transaction runs as written and is rolled back on failure; any other runs
// in a transaction of the provider's, so that a failure leaves nothing of
// it where the database takes its DDL back (SQL Server, PostgreSQL, SQLite).
void createOnOdbc(const OdbcLogin& login, const std::string& source,
                  const ScriptForKind& scriptFor);

}  // namespace varnock::client::odbc
