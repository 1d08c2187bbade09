// SPDX-License-Identifier: MIT
// What the ODBC provider adds on an SQLite register reached through the
// SQLite3 driver, beyond the conformance suite: text of every kind, long
// values, its refusals, foreign keys, and creating a register.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "client/client.h"
#include "client/dialect/refusal.h"
#include "client/odbc/odbc_connection.h"
#include "client/odbc/odbc_provider.h"
#include "register/ddl.h"
#include "support/failure_of.h"
#include "support/odbc_drivers.h"
#include "support/temp_register.h"

namespace varnock::client::odbc {
namespace {

using namespace std::string_literals;
using testing::raisedBy;

class SqliteThroughOdbc : public ::testing::Test {
 protected:
  void SetUp() override {
    VARNOCK_REQUIRE_ODBC_DRIVER("SQLite3");
    connection_ = open(odbcString(register_.path()));
  }

  static std::string odbcString(const std::filesystem::path& path) {
    return testing::TempRegister::sqliteOdbcConnectionString(path);
  }

  // The value of one column of the single row a query gives.
  Variant only(const std::string& query, const char* field) {
    auto rows = connection_->execute(query);
    EXPECT_FALSE(rows->eof()) << query;
    if (rows->eof()) return Variant::empty();
    Variant value = rows->field(field);
    rows->moveNext();
    EXPECT_TRUE(rows->eof()) << query;
    return value;
  }

  testing::TempRegister register_;
  std::unique_ptr<Connection> connection_;
};

// The SQLite3 driver is an ANSI driver: the driver manager hands it each
// UTF-16 unit of a statement cut to one byte, so what is written through it
// stays ASCII here. What it reads it gives in full, so text of every kind,
// written by the native provider, is read back exactly.
TEST_F(SqliteThroughOdbc, TextOfEveryKindIsReadBackExactly) {
  const std::string texts[] = {"Zoë Ørsted", "中文 ελληνικά", "\xF0\x9F\x98\x80 beyond the BMP",
                               "O''Brien", ""};
  int key = 0;
  for (const std::string& text : texts) {
    SCOPED_TRACE(text);
    const std::string section = "s" + std::to_string(++key);
    register_.run({"INSERT INTO [Parm] ([Section], [KeyName], [Value], [Locked]) VALUES ('" +
                   section + "', 'k', N'" + text + "', 0)"});
    std::string value = text;
    if (const std::size_t doubled = value.find("''"); doubled != std::string::npos) {
      value.erase(doubled, 1);
    }
    EXPECT_EQ(only("SELECT * FROM [Parm] WHERE Section = '" + section + "'", "Value"),
              Variant(value));
  }
}

TEST_F(SqliteThroughOdbc, TextWrittenThroughTheDriverIsTheSameTextForTheEmbeddedProvider) {
  const std::string text = "Zürich Ørsted 中文 \xF0\x9F\x98\x80";
  connection_->execute("INSERT INTO [Country] ([Country]) VALUES (N'" + text + "')");
  // Found without regard to case, in the register's collation, either way.
  EXPECT_EQ(only("SELECT * FROM [Country] WHERE Country = 'ZÜRICH ØRSTED 中文 \xF0\x9F\x98\x80'",
                 "Country"),
            Variant(text));
  auto native = open(register_.dsn());
  auto rows = native->execute("SELECT * FROM [Country]");
  ASSERT_FALSE(rows->eof());
  EXPECT_EQ(rows->field("Country"), Variant(text));
}

TEST_F(SqliteThroughOdbc, LongTextIsReadWholeAcrossThePiecesItComesIn) {
  // Characters beyond the BMP throughout, so that one falls across the
  // boundary between two of the pieces the reader asks for.
  std::string text;
  for (int i = 0; i < 5000; ++i)
    text += i % 7 == 0 ? "\xF0\x9F\x98\x80" : "x";
  text += "end";
  register_.run({"INSERT INTO [GroupCode] ([GroupCode], [Group], [Comment]) VALUES ('g', 'G', N'" +
                 text + "')"});
  EXPECT_EQ(only("SELECT * FROM [GroupCode]", "Comment"), Variant(text));
}

TEST_F(SqliteThroughOdbc, OneStatementAtATimeAsTheNativeProviderRunsThem) {
  const AutomationError several = raisedBy([&] {
    connection_->execute("INSERT INTO [Country] ([Country]) VALUES ('Chad'); DELETE FROM [Zone]");
  });
  EXPECT_EQ(several.number(), kCommandFailed);
  EXPECT_EQ(several.description(), kSeveralStatementsText);
  EXPECT_EQ(several.source(), kOdbcSource);
  EXPECT_EQ(raisedBy([&] { connection_->execute(" ; -- none"); }).description(), kNoStatementText);
  // Nothing of the refused text ran; a closing semicolon is one statement.
  connection_->execute("INSERT INTO [Country] ([Country]) VALUES ('Peru');");
  EXPECT_EQ(only("SELECT Count(*) AS n FROM [Country]", "n"), Variant(std::int32_t{1}));
}

TEST_F(SqliteThroughOdbc, WhatSqlServerRefusesTheDialectRefusesWithTheProvidersName) {
  const AutomationError e = raisedBy([&] {
    connection_->execute(
        "INSERT INTO [LogFile] ([ProgramName], [LogDate], [Message]) VALUES ('p', 'no date', "
        "'m')");
  });
  EXPECT_EQ(e.number(), kCommandFailed);
  EXPECT_EQ(e.description(), dialect::kDateConversionText);
  EXPECT_EQ(e.source(), kOdbcSource);
}

TEST_F(SqliteThroughOdbc, ForeignKeysHoldAsOnSqlServer) {
  const AutomationError e = raisedBy([&] {
    connection_->execute(
        "INSERT INTO [GroupMember] ([GroupCode], [UserName]) VALUES ('nobody', 'none')");
  });
  EXPECT_NE(e.description().find("FOREIGN KEY"), std::string::npos) << e.description();
  EXPECT_EQ(e.sqlState(), "HY000");
}

TEST_F(SqliteThroughOdbc, DatesAndWholeNumbersComeBackTyped) {
  register_.run({"INSERT INTO [Zone] ([Zone], [Test]) VALUES ('z', 0)",
                 "INSERT INTO [User] ([UserName], [Lastname], [Country], [Password], [Email], "
                 "[Authorized]) VALUES ('u', 'U', 'Chad', 'p', 'u@x', 1)"});
  connection_->execute(
      "INSERT INTO [ZoneAddress] ([Zone], [UserName], [Address], [CreationDate]) VALUES "
      "('z', 'u', 42, '20000504 13:45:29')");
  EXPECT_EQ(only("SELECT * FROM [ZoneAddress]", "CreationDate"),
            Variant(Date::fromCivil({2000, 5, 4, 13, 45, 0})));
  // A number past a Long's range is a Double, as on the native provider.
  EXPECT_EQ(only("SELECT 3000000000 AS big", "big"), Variant(3000000000.0));
}

// --- Creating a register

std::string sqliteScript(std::string_view kind) {
  EXPECT_EQ(kind, "SQLite");
  return schema::registerDdl(schema::Dialect::Sqlite);
}

class CreatingThroughOdbc : public ::testing::Test {
 protected:
  void SetUp() override { VARNOCK_REQUIRE_ODBC_DRIVER("SQLite3"); }
  std::filesystem::path path() const { return folder_.folder() / "made.db"; }
  // The driver makes the file; the register's collation comes with the extension.
  std::string odbcString() const {
    return "Driver=SQLite3;Database=" + path().string() +
           ";LoadExt=" + VARNOCK_SQLITE_EXTENSION_PATH;
  }

  testing::TempRegister folder_;  // only its folder is used
};

TEST_F(CreatingThroughOdbc, TheScriptMakesARegisterBothProvidersRead) {
  create(odbcString(), sqliteScript);
  auto overOdbc = open(odbcString());
  overOdbc->execute(
      "INSERT INTO [ErrorLog] ([DateCreated], [UserId], [ErrorNumber], [ErrorDescription]) "
      "VALUES ('5/4/2000 1:45:40 PM', 'ann', 5, 'failed')");
  overOdbc->close();
  // The triggers ran: the date is stored rounded, as the native provider reads it.
  auto native = open("Provider=SQLite;Data Source=" + path().string());
  EXPECT_EQ(native->execute("SELECT * FROM [ErrorLog]")->field("DateCreated"),
            Variant(Date::fromCivil({2000, 5, 4, 13, 46, 0})));
}

TEST_F(CreatingThroughOdbc, ADatabaseHoldingTheRegistersTablesIsRefused) {
  create(odbcString(), sqliteScript);
  auto first = open(odbcString());
  first->execute("INSERT INTO [Country] ([Country]) VALUES ('Chad')");
  first->close();
  const AutomationError e = raisedBy([&] { create(odbcString(), sqliteScript); });
  EXPECT_EQ(e.number(), kCannotOpen);
  EXPECT_EQ(e.source(), kOdbcSource);
  EXPECT_NE(e.description().find("already holds tables of a register (Country, "),
            std::string::npos)
      << e.description();
  auto again = open(odbcString());
  EXPECT_EQ(again->execute("SELECT * FROM [Country]")->field("Country"), Variant("Chad"));
}

TEST_F(CreatingThroughOdbc, AFailedScriptLeavesNoTable) {
  const AutomationError e = raisedBy([&] {
    create(odbcString(), [](std::string_view kind) {
      // The last statement before the script's COMMIT fails, after every
      // table is made.
      std::string script = sqliteScript(kind);
      script.insert(script.rfind("COMMIT;"), "CREATE TABLE \"Broken\" (;\n");
      return script;
    });
  });
  EXPECT_EQ(e.source(), kOdbcSource);
  // The script's own transaction was rolled back: the database is as empty
  // as before, and a register can be made there now.
  auto after = open(odbcString());
  EXPECT_NE(raisedBy([&] { after->execute("SELECT * FROM [Country]"); })
                .description()
                .find("no such table"),
            std::string::npos);
  after->close();
  create(odbcString(), sqliteScript);
}

TEST_F(CreatingThroughOdbc, AScriptWithoutItsOwnTransactionRunsInTheProviders) {
  const AutomationError e = raisedBy([&] {
    create(odbcString(), [](std::string_view) {
      return "CREATE TABLE \"Country\" (\"Country\" text);\nCREATE TABLE \"State\" (;"s;
    });
  });
  EXPECT_FALSE(e.description().empty());
  auto after = open(odbcString());
  EXPECT_NE(raisedBy([&] { after->execute("SELECT * FROM [Country]"); })
                .description()
                .find("no such table"),
            std::string::npos);
}

}  // namespace
}  // namespace varnock::client::odbc
