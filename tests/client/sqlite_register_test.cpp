// Register files: creating one, opening one, and sharing one with other
// processes and with the standard sqlite3 shell.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

#include "client/client.h"
#include "client/connection_string.h"
#include "support/run_program.h"
#include "support/temp_register.h"
#include "varnock/automation_error.h"
#include "varnock/register.h"

namespace varnock::client {
namespace {

namespace fs = std::filesystem;

AutomationError openFailure(const std::string& connectionString) {
  try {
    open(connectionString);
  } catch (const AutomationError& e) {
    return e;
  }
  ADD_FAILURE() << "opened: " << connectionString;
  return AutomationError(0, "", "");
}

Variant count(Connection& connection, const std::string& table) {
  auto rows = connection.execute("SELECT Count(*) AS n FROM [" + table + "]");
  return rows->field("n");
}

TEST(RegisterFile, CreatedEmptyAndSaysHowToOpenIt) {
  testing::TempRegister reg;
  EXPECT_EQ(reg.dsn(), "Provider=SQLite;Data Source=" + reg.path().string());
  auto connection = open(reg.dsn());
  for (const char* table : {"Country", "ErrorLog", "GroupCode", "GroupMember", "LogFile", "Parm",
                            "State", "User", "Zone", "ZoneAddress", "ZonePool"}) {
    EXPECT_EQ(count(*connection, table), Variant(std::int32_t{0})) << table;
  }
  // The columns in their order, with their names and letter case.
  auto user = connection->execute(
      "SELECT group_concat(name, ',') AS Names FROM "
      "pragma_table_info('User')");
  EXPECT_EQ(user->field("Names"),
            Variant("UserName,SiteType,Firstname,Lastname,Country,State,Password,Email,"
                    "Pagetopic,Bio,Graphic,Link,DateCreated,Authorized,AuthorisationDate,"
                    "AuthorisationMessage,REMOTE_ADDR"));
}

TEST(RegisterFile, CreatingNeverWritesOverAFile) {
  testing::TempRegister reg;
  const fs::path existing = reg.folder() / "notes.txt";
  std::ofstream(existing) << "keep me";
  try {
    createRegister(existing.string());
    ADD_FAILURE() << "wrote over " << existing;
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.number(), kCannotOpen);
    EXPECT_NE(e.description().find("already exists"), std::string::npos) << e.description();
  }
  EXPECT_EQ(fs::file_size(existing), 7u);
  EXPECT_THROW(createRegister(reg.path().string()), AutomationError);
  EXPECT_THROW(createRegister((reg.folder() / "missing" / "r.db").string()), AutomationError);
  EXPECT_FALSE(fs::exists(reg.folder() / "missing"));
}

TEST(RegisterFile, CreatingQuotesAPathThatWouldEndTheConnectionString) {
  testing::TempRegister reg;
  const fs::path odd = reg.folder() / "a;b \"c\".db";
  const std::string dsn = createRegister(odd.string());
  EXPECT_EQ(ConnectionString(dsn).get("Data Source"), odd.string());
  auto connection = open(dsn);
  EXPECT_EQ(count(*connection, "Zone"), Variant(std::int32_t{0}));
}

TEST(RegisterFile, OpeningAMissingFileFailsAndMakesNone) {
  testing::TempRegister reg;
  const fs::path missing = reg.folder() / "missing.db";
  const AutomationError e = openFailure("Provider=SQLite;Data Source=" + missing.string());
  EXPECT_EQ(e.number(), kCannotOpen);
  EXPECT_EQ(e.source(), "Varnock.SQLite");
  EXPECT_NE(e.description().find(missing.string()), std::string::npos) << e.description();
  EXPECT_FALSE(fs::exists(missing));
}

TEST(RegisterFile, OpeningNeedsADataSourceThatIsADatabase) {
  for (const char* dsn : {"Provider=SQLite", "Provider=SQLite;Data Source=",
                          "Provider=SQLite;"
                          "Data Source=  "}) {
    const AutomationError e = openFailure(dsn);
    EXPECT_EQ(e.number(), kCannotOpen) << dsn;
    EXPECT_NE(e.description().find("Data Source"), std::string::npos) << e.description();
  }
  testing::TempRegister reg;
  const fs::path text = reg.folder() / "text.db";
  std::ofstream(text) << "This file holds words, not tables, and it is long enough to tell.";
  EXPECT_EQ(openFailure("Provider=SQLite;Data Source=" + text.string()).description(),
            "file is not a database");
}

// Another process holds a write transaction for a second; an insert of ours
// meanwhile waits for it instead of failing, and then succeeds.
TEST(RegisterFile, AWriterWaitsForAnotherProcesssTransaction) {
  testing::TempRegister reg;
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    int status = 1;
    try {
      auto holder = open(reg.dsn());
      holder->execute("BEGIN IMMEDIATE");
      holder->execute("INSERT INTO [Country] VALUES ('Chad')");
      const char signal = 'x';
      if (::write(ready[1], &signal, 1) == 1) status = 0;
      std::this_thread::sleep_for(std::chrono::seconds(1));
      holder->execute("COMMIT");
    } catch (...) {
      status = 2;
    }
    ::_exit(status);
  }
  ::close(ready[1]);
  char signal = 0;
  ASSERT_EQ(::read(ready[0], &signal, 1), 1);
  ::close(ready[0]);
  auto connection = open(reg.dsn());
  const auto start = std::chrono::steady_clock::now();
  connection->execute("INSERT INTO [Country] VALUES ('Peru')");
  const auto waited = std::chrono::steady_clock::now() - start;
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  EXPECT_GE(waited, std::chrono::milliseconds(500));
  EXPECT_EQ(count(*connection, "Country"), Variant(std::int32_t{2}));
}

// Runs SQL in the sqlite3 shell; its output, or nullopt when it fails.
std::optional<std::string> inShell(const fs::path& shell, const fs::path& db,
                                   const std::string& sql) {
  const testing::ProgramRun run =
      testing::runProgram(shell, {"-batch", "-bail", db.string(), sql}, db.parent_path());
  if (run.status != 0) return std::nullopt;
  return run.out;
}

TEST(RegisterFile, StaysAnOrdinaryDatabaseForTheSqliteShell) {
  const auto shell = testing::findOnPath("sqlite3");
  if (!shell) GTEST_SKIP() << "no sqlite3 shell on the search path";
  testing::TempRegister reg;
  reg.run({"INSERT INTO [Zone] ([Zone], [Test]) VALUES ('north', 1)",
           "INSERT INTO [User] VALUES ('x', NULL, NULL, 'X', 'Chad', NULL, 'pw', 'x@x', NULL, "
           "NULL, NULL, NULL, NULL, 1, NULL, NULL, NULL)",
           "INSERT INTO [ZoneAddress] ([Zone], [UserName], [Address], [CreationDate]) VALUES "
           "('north', 'x', 1, '5/4/2000 1:45:40 PM')"});
  EXPECT_EQ(inShell(*shell, reg.path(), "SELECT CreationDate FROM ZoneAddress;"),
            "2000-05-04 13:46:00\n");
  ASSERT_TRUE(inShell(*shell, reg.path(),
                      "INSERT INTO Zone VALUES ('south', 0); INSERT INTO ZoneAddress VALUES "
                      "('south', 'x', 2, '2001-02-03 04:05:31');"));
  auto connection = open(reg.dsn());
  auto zone = connection->execute("SELECT * FROM [Zone] WHERE Zone = 'SOUTH'");
  EXPECT_EQ(zone->field("Test"), Variant(false));
  auto address = connection->execute("SELECT * FROM [ZoneAddress] WHERE CreationDate > '2/1/2001'");
  ASSERT_FALSE(address->eof());
  ASSERT_EQ(address->field("CreationDate").type(), Variant::Type::Date);
  EXPECT_EQ(address->field("CreationDate").asDate().civil(), (CivilDateTime{2001, 2, 3, 4, 6, 0}));
  // What the shell cannot read as a date, the register refuses.
  EXPECT_FALSE(
      inShell(*shell, reg.path(), "INSERT INTO ZoneAddress VALUES ('south', 'z', 3, 'someday');"));
}

}  // namespace
}  // namespace varnock::client
