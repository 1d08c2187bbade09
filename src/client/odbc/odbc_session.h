// SPDX-License-Identifier: MIT
// One ODBC connection to a database, opened at construction: the driver
// manager's connection, the database's name (SQL_DBMS_NAME) and the dialect
// Varnock runs its statements in there. Statements go to the driver as
// given; the Connection on top of it carries SQL Server's over first.
// Used by one caller at a time.
#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "automation/text.h"
#include "client/client.h"
#include "client/dialect/database_dialect.h"
#include "client/odbc/odbc_handles.h"
#include "client/odbc/odbc_login.h"

namespace varnock::client::odbc {

// A statement's first result: its column names and every row's values in
// the columns' order.
struct ResultRows {
  std::vector<std::string> names;
  std::vector<std::vector<Variant>> rows;
};

class OdbcSession {
 public:
  // Connects without prompting, within the login's timeout. Raises the
  // driver's diagnostics, or kCannotOpen for a database whose name no
  // dialect knows. `source` is what every failure carries.
  OdbcSession(const OdbcLogin& login, std::string source);

  const std::string& source() const noexcept { return source_; }
  const std::string& databaseName() const noexcept { return databaseName_; }
  const dialect::DatabaseDialect& dialect() const noexcept { return *dialect_; }

  // Runs a statement (or a batch, where the database runs batches) and
  // reads its first result in full; later results are read past, so that
  // their failures are raised too. A text run before is prepared and kept.
  ResultRows run(std::string_view sql);

  // Turns the driver's autocommit off (a transaction begins) or on.
  void setAutocommit(bool on);
  // Ends the transaction begun with autocommit off.
  void commit();
  // Never throws: used on a path that is already failing.
  void rollback() noexcept;

  // Whether the server connection still answers: the driver does not report
  // it dead and, when it has been idle for more than a second, a statement
  // that reads nothing comes back. A session in steady use is not asked
  // every time: that would double each call's round trips. Never throws.
  bool answers() noexcept;

  // The names of the database's tables (SQLTables, type TABLE).
  std::vector<std::string> tableNames();

 private:
  std::string source_;
  std::shared_ptr<ConnectionHandle> connection_;
  std::string databaseName_;
  const dialect::DatabaseDialect* dialect_ = nullptr;
  std::chrono::steady_clock::time_point lastAnswer_ = std::chrono::steady_clock::now();
  std::unordered_set<std::size_t> seen_;  // hashes of texts run once
  std::unordered_map<std::string, std::unique_ptr<StatementHandle>, TextHash, std::equal_to<>>
      prepared_;

  // The result of a statement that ran (`ran` is what running it returned).
  ResultRows readAll(SQLHSTMT statement, SQLRETURN ran, bool prepared);
};

}  // namespace varnock::client::odbc
