// A Connection over ODBC: statements in SQL Server's dialect are carried over
// to the database's own by the dialect its driver's database name picks, one
// statement per execute, and their rows read in full at once.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "client/client.h"
#include "client/dialect/register_schema.h"
#include "client/odbc/odbc_session.h"

namespace varnock::client::odbc {

class OdbcConnection final : public Connection {
 public:
  // Connects (see OdbcSession) and, for a dialect that needs it, reads the
  // register's schema through the connection.
  OdbcConnection(const OdbcLogin& login, std::string source);

  std::unique_ptr<Recordset> execute(std::string_view statement) override;
  void close() noexcept override;

 private:
  std::unique_ptr<OdbcSession> session_;
  std::string source_;
  // Shared with the other connections to the same connection string.
  std::shared_ptr<const dialect::RegisterSchema> schema_;
};

// Drops the register schema kept for an ODBC connection string, so that the
// next connection reads it again: for a register just made there.
void forgetSchema(const std::string& connectionString);

}  // namespace varnock::client::odbc
