// SPDX-License-Identifier: MIT
#include "client/odbc/odbc_create.h"

#include <string_view>
#include <vector>

#include "automation/text.h"
#include "client/odbc/odbc_connection.h"
#include "client/odbc/odbc_errors.h"
#include "client/odbc/odbc_session.h"
#include "client/odbc/statement_split.h"

namespace varnock::client::odbc {

namespace {

// The kinds whose drivers refuse several statements in one call.
bool runsOneStatementAtATime(std::string_view kind) {
  return kind == "SQLite";
}

std::vector<std::string_view> piecesOf(std::string_view script, std::string_view kind) {
  std::vector<std::string_view> pieces;
  for (const std::string_view batch : splitBatches(script)) {
    if (!runsOneStatementAtATime(kind)) {
      pieces.push_back(batch);
      continue;
    }
    for (const std::string_view statement : splitStatements(batch))
      pieces.push_back(statement);
  }
  return pieces;
}

// The tables the register would meet: where the dialect reads the register's
// schema, those of that schema only (PostgreSQL's current schema, where the
// new tables would go), otherwise every table the driver lists.
std::vector<std::string> tablesInTheWay(OdbcSession& session) {
  const std::string_view schemaQuery = session.dialect().schemaQuery;
  if (schemaQuery.empty()) return session.tableNames();
  std::vector<std::string> tables;
  for (const std::vector<Variant>& row : session.run(schemaQuery).rows) {
    if (!row.empty() && row[0].isString()) tables.push_back(row[0].asString());
  }
  return tables;
}

void refuseExistingTables(OdbcSession& session, std::string_view script) {
  const std::vector<std::string> existing = tablesInTheWay(session);
  std::string clashes;
  for (const std::string& created : createdTables(script)) {
    for (const std::string& table : existing) {
      if (!equalsIgnoringCase(table, created)) continue;
      clashes += (clashes.empty() ? "" : ", ") + table;
      break;
    }
  }
  if (clashes.empty()) return;
  fail(kCannotOpen,
       "The database already holds tables of a register (" + clashes +
           "); a new register is never written over an existing one.",
       session.source());
}

void runEach(OdbcSession& session, const std::vector<std::string_view>& pieces) {
  for (const std::string_view piece : pieces)
    session.run(withoutComments(piece));
}

}  // namespace

void createOnOdbc(const OdbcLogin& login, const std::string& source,
                  const ScriptForKind& scriptFor) {
  // Connections keep a register's schema once read; whatever this does to
  // the database, the next one reads it again.
  struct Forget {
    const std::string& connectionString;
    ~Forget() { forgetSchema(connectionString); }
  } forget{login.connectionString};
  OdbcSession session(login, source);
  const std::string script = scriptFor(session.dialect().kind);
  refuseExistingTables(session, script);
  const std::vector<std::string_view> pieces = piecesOf(script, session.dialect().kind);
  bool ownTransaction = false;
  for (const std::string_view piece : pieces)
    ownTransaction = ownTransaction || isTransactionControl(piece);
  if (ownTransaction) {
    try {
      runEach(session, pieces);
    } catch (...) {
      try {
        session.run("ROLLBACK");
      } catch (const AutomationError&) {
        // No transaction was open: the failure came before the script's own.
      }
      throw;
    }
    return;
  }
  session.setAutocommit(false);
  try {
    runEach(session, pieces);
    session.commit();
  } catch (...) {
    session.rollback();
    throw;
  }
}

}  // namespace varnock::client::odbc
