// SPDX-License-Identifier: MIT
// A Connection over ODBC: statements in SQL Server's dialect are carried over
// to the database's own by the dialect its driver's database name picks, one
// statement per execute, and their rows read in full at once.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "client/client.h"
#include "client/dialect/register_schema.h"
#include "client/odbc/odbc_session.h"
#include "client/provider.h"
#include "platform/files.h"

namespace varnock::client::odbc {

class OdbcConnection final : public Session {
 public:
  // Connects (see OdbcSession) and, for a dialect that needs it, reads the
  // register's schema through the connection.
  OdbcConnection(const OdbcLogin& login, std::string source);

  std::unique_ptr<Recordset> execute(std::string_view statement) override;
  void close() noexcept override;
  // Its rows are read in full by execute(): nothing is left pending.
  bool reusable() noexcept override { return session_ != nullptr; }
  // The server still answers and, for an SQLite register, the file is the
  // one the driver opened.
  bool current() noexcept override;

 private:
  std::unique_ptr<OdbcSession> session_;
  std::string source_;
  std::string connectionString_;                // the driver's
  std::optional<std::string> sqliteFile_;       // an SQLite register's file (Database=)
  std::optional<platform::FileIdentity> file_;  // which file that was at open
  // Shared with the other connections to the same connection string.
  std::shared_ptr<const dialect::RegisterSchema> schema_;
};

// Drops the register schema kept for an ODBC connection string, so that the
// next connection reads it again: for a register just made there.
void forgetSchema(const std::string& connectionString);

}  // namespace varnock::client::odbc
