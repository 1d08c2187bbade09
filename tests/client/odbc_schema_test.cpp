// SPDX-License-Identifier: MIT
// The register's schema that ODBC connections keep once read: a register
// made where a connection had already read a schema without it is seen by
// the next connection, whose statements are then carried over with it.
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>

#include "client/client.h"
#include "support/back_end.h"
#include "support/postgres_server.h"
#include "varnock/automation_error.h"
#include "varnock/register.h"

namespace varnock::client {
namespace {

using testing::PostgresServer;

TEST(OdbcSchema, ARegisterMadeAfterAConnectionReadTheDatabaseIsSeen) {
  if (testing::chosenBackEnd() != testing::BackEnd::Postgres)
    GTEST_SKIP() << "registers are made through ODBC on PostgreSQL";
  const PostgresServer& server = PostgresServer::shared();
  ASSERT_EQ(server.state(), PostgresServer::State::Running) << server.problem();
  const std::string schema = "late_register_" + std::to_string(::getpid());
  ASSERT_TRUE(server
                  .psql("CREATE EXTENSION IF NOT EXISTS citext SCHEMA public; CREATE SCHEMA " +
                        schema + "; CREATE TABLE " + schema + ".other (name text)")
                  .ok);
  const testing::PostgresConnection& c = server.connection();
  const std::string dsn = "Driver={PostgreSQL Unicode};Server=" + c.host + ";Port=" + c.port +
                          ";Database=" + c.database + ";UID=" + c.user + ";PWD=" + c.password +
                          ";CommLog=0;ConnSettings=SET search_path TO " + schema + ",public";

  // A schema that lists a table, but none of the register's.
  auto before = open(dsn);
  EXPECT_TRUE(before->execute("SELECT * FROM [Other]")->eof());
  before->close();

  createRegisterIn(dsn);
  auto after = open(dsn);
  after->execute("INSERT INTO [Country] VALUES ('Norway')");
  const std::string insert =
      "INSERT INTO [User] ([UserName], [Lastname], [Country], [Password], [Email], [Authorized]) "
      "VALUES ";
  after->execute(insert + "('kept', 'K', 'Norway', 'pw', 'k@x', 'True')");
  // PostgreSQL itself would take 'yes' for a boolean; SQL Server refuses it
  // for a bit, and so does the dialect where it knows Authorized is one.
  try {
    after->execute(insert + "('refused', 'R', 'Norway', 'pw', 'r@x', 'yes')");
    ADD_FAILURE() << "'yes' was written to a bit: the register's schema was not read";
  } catch (const AutomationError& e) {
    EXPECT_NE(std::string(e.what()).find("to data type bit"), std::string::npos) << e.what();
  }
  after->close();
  server.psql("DROP SCHEMA " + schema + " CASCADE");
}

}  // namespace
}  // namespace varnock::client
