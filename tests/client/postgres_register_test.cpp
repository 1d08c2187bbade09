// SPDX-License-Identifier: MIT
// The PostgreSQL register made by the generated DDL, on a server of this
// program's own, running the record objects' statements as the PostgreSQL
// dialect carries them over: the register behaves as the SQL Server one.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "automation/text.h"
#include "catalogue/catalogue.h"
#include "client/dialect/database_dialect.h"
#include "client/dialect/refusal.h"
#include "client/dialect/register_schema.h"
#include "register/ddl.h"
#include "support/postgres_server.h"

namespace varnock::client::dialect {
namespace {

using testing::PostgresServer;
using testing::PsqlRun;
using Rows = std::vector<std::string>;

constexpr const char* kTextTooLong = "String or binary data would be truncated.";

const DatabaseDialect& postgres() {
  return *dialectForDatabase("PostgreSQL");
}

Rows linesOf(const std::string& out) {
  Rows lines;
  std::istringstream in(out);
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  return lines;
}

// The register, made once for the program from the generated script, and
// its schema as the provider reads it with the dialect's query.
struct Register {
  std::string problem;  // empty when made
  RegisterSchema schema;
  std::string tables;  // every table, for TRUNCATE
};

const Register& theRegister() {
  static const Register made = [] {
    Register r;
    const PostgresServer& server = PostgresServer::shared();
    const PsqlRun created = server.psql(schema::registerDdl(schema::Dialect::Postgres));
    if (!created.ok) {
      r.problem = "the register script failed: " + created.error;
      return r;
    }
    const PsqlRun columns = server.psql(std::string(postgres().schemaQuery));
    for (const std::string& line : linesOf(columns.out)) {
      const std::size_t bar = line.find('|'), second = line.find('|', bar + 1);
      r.schema.addColumn(line.substr(0, bar), line.substr(bar + 1, second - bar - 1),
                         line.substr(second + 1));
    }
    for (const catalogue::Table& t : catalogue::tables())
      r.tables += (r.tables.empty() ? "\"" : ", \"") + lowerCase(t.name) + "\"";
    return r;
  }();
  return made;
}

class PostgresRegister : public ::testing::Test {
 protected:
  void SetUp() override {
    VARNOCK_REQUIRE_POSTGRES();
    ASSERT_EQ(theRegister().problem, "");
    const PsqlRun emptied = server().psql("TRUNCATE " + theRegister().tables + " CASCADE");
    ASSERT_TRUE(emptied.ok) << emptied.error;
  }

  static const PostgresServer& server() { return PostgresServer::shared(); }

  // What a statement in SQL Server's dialect gives: its rows, each as the
  // fields joined by '|'. A refusal fails the test.
  static Rows rows(std::string_view statement) {
    const PsqlRun run = server().psql(translated(statement));
    EXPECT_TRUE(run.ok) << statement << "\n" << run.error;
    return linesOf(run.out);
  }

  static void write(std::string_view statement) { rows(statement); }

  // Why the statement is refused, by the dialect or by the server; "" when
  // it is not.
  static std::string refusal(std::string_view statement) {
    std::string text;
    try {
      text = translated(statement);
    } catch (const StatementRefused& e) {
      return e.what();
    }
    const PsqlRun run = server().psql(text);
    return run.ok ? "" : run.error;
  }

  static std::string translated(std::string_view statement) {
    return postgres().translate(statement, theRegister().schema) + ";";
  }

  static void addCountries(std::initializer_list<std::string_view> names) {
    for (const std::string_view name : names)
      write("INSERT INTO [Country] ([Country]) VALUES ('" + std::string(name) + "')");
  }

  static void addUser(std::string_view name, std::string_view bio = "") {
    write(
        "INSERT INTO [User] ([UserName], [Lastname], [Country], [Password], [Email], [Bio], "
        "[DateCreated], [Authorized]) VALUES ('" +
        std::string(name) + "', 'Doe', 'Norway', 'pw', 'x@example.org', '" + std::string(bio) +
        "', '2000/5/4 13:45:00PM', 1)");
  }
};

TEST_F(PostgresRegister, SchemaQueryReportsEveryColumnWithSqlServersTypeName) {
  std::vector<const catalogue::Table*> tables;
  for (const catalogue::Table& t : catalogue::tables())
    tables.push_back(&t);
  std::sort(tables.begin(), tables.end(),
            [](const auto* a, const auto* b) { return lowerCase(a->name) < lowerCase(b->name); });
  Rows expected;
  for (const catalogue::Table* t : tables) {
    for (const catalogue::Column& c : t->columns) {
      expected.push_back(lowerCase(t->name) + "|" + lowerCase(c.field) + "|" +
                         std::string(catalogue::sqlTypeName(c.type)));
    }
  }
  const PsqlRun run = server().psql(std::string(postgres().schemaQuery));
  ASSERT_TRUE(run.ok) << run.error;
  EXPECT_EQ(linesOf(run.out), expected);
}

TEST_F(PostgresRegister, TextComparesOrdersAndStaysUniqueWithoutRegardToCase) {
  addCountries({"Zürich", "Norway", "Zurich", "Zz", "apple", "Banana", "Österreich", "Oslo"});
  EXPECT_EQ(rows("SELECT * FROM [Country] WHERE Country = 'ZÜRICH'"), Rows{"Zürich"});
  EXPECT_EQ(rows("SELECT * FROM [Country] WHERE Country = N'norway'"), Rows{"Norway"});
  EXPECT_EQ(rows("SELECT * FROM [Country] WHERE Country LIKE 'zü%' OR Country LIKE '_URICH'"),
            (Rows{"Zürich", "Zurich"}));
  EXPECT_EQ(rows("SELECT * FROM [Country] ORDER BY Country"),
            (Rows{"apple", "Banana", "Norway", "Oslo", "Österreich", "Zurich", "Zürich", "Zz"}));
  EXPECT_EQ(rows("SELECT Count(*) AS CountResultField FROM [Country] WHERE Country > 'OSLO'"),
            Rows{"4"});
  for (const char* duplicate : {"NORWAY", "ZÜRICH", "zz"}) {
    EXPECT_EQ(
        refusal("INSERT INTO [Country] ([Country]) VALUES ('" + std::string(duplicate) + "')"),
        "duplicate key value violates unique constraint \"pk_country\"")
        << duplicate;
  }
}

TEST_F(PostgresRegister, NavigationAndPagingWalkTheOrderedRows) {
  addCountries({"c", "A", "e", "B", "d"});
  const auto nextAfter = [](int offset) {
    return "SELECT TOP 1 * FROM [Country] WHERE Country NOT IN  (SELECT TOP " +
           std::to_string(offset) +
           " Country FROM [Country] WHERE Country <> 'x' ORDER BY Country) AND Country <> 'x' "
           "ORDER BY Country";
  };
  EXPECT_EQ(rows("SELECT TOP 1 * FROM [Country] ORDER BY Country"), Rows{"A"});
  EXPECT_EQ(rows(nextAfter(2)), Rows{"c"});
  EXPECT_EQ(rows(nextAfter(5)), Rows{});
  EXPECT_EQ(rows("SELECT TOP 1 * FROM [Country] ORDER BY Country DESC"), Rows{"e"});
  EXPECT_EQ(rows("SELECT TOP 2 * FROM [Country] WHERE Country NOT IN  (SELECT TOP 2 Country FROM "
                 "[Country] ORDER BY Country) ORDER BY Country"),
            (Rows{"c", "d"}));
  // The logs have no navigation column; the server refuses their walks.
  EXPECT_NE(refusal("SELECT TOP 1 * FROM [ErrorLog] WHERE  NOT IN  (SELECT TOP 1  FROM "
                    "[ErrorLog])"),
            "");
  EXPECT_NE(refusal("SELECT TOP 1 * FROM [LogFile] ORDER BY  DESC"), "");
}

TEST_F(PostgresRegister, DatesAreWholeMinutesInSmalldatetimesRange) {
  write(
      "INSERT INTO [ErrorLog] ([DateCreated], [UserId], [ErrorNumber], [ErrorDescription], "
      "[Message]) VALUES ('2000/5/4 13:45:30PM', 'u', 5, 'd', 'm')");
  EXPECT_EQ(rows("SELECT * FROM [ErrorLog]"), Rows{"2000-05-04 13:46:00|u|5|d|m"});
  // The key lookup with the date in its ordinary text form, other values in
  // another case.
  EXPECT_EQ(rows("SELECT * FROM [ErrorLog] WHERE DateCreated = '5/4/2000 1:46:00 PM' AND  UserId "
                 "= 'U' AND  ErrorNumber = '5' AND  ErrorDescription = 'D' AND  Message = 'M'")
                .size(),
            1u);
  write("UPDATE [ErrorLog] SET [DateCreated] = '2001/2/3 04:05:29' WHERE UserId = 'u'");
  EXPECT_EQ(rows("SELECT DateCreated FROM [ErrorLog] WHERE DateCreated BETWEEN 'Feb 3, 2001' AND "
                 "'2/4/2001'"),
            Rows{"2001-02-03 04:05:00"});
  EXPECT_EQ(refusal("UPDATE [ErrorLog] SET [DateCreated] = 'soon'"), kDateConversionText);
  EXPECT_EQ(refusal("UPDATE [ErrorLog] SET [DateCreated] = '6/7/2079'"), kDateOutOfRangeText);
  // Dates the dialect does not see are kept by the register itself.
  EXPECT_EQ(refusal("UPDATE [ErrorLog] SET [DateCreated] = CAST('2079-06-06 23:59:30' AS "
                    "smalldatetime)"),
            kDateOutOfRangeText);
  EXPECT_EQ(refusal("UPDATE [ErrorLog] SET [DateCreated] = CAST('1899-12-31 23:00' AS "
                    "smalldatetime)"),
            kDateOutOfRangeText);
  write("UPDATE [ErrorLog] SET [DateCreated] = CAST('2079-06-06 23:59:29.9' AS smalldatetime)");
  EXPECT_EQ(rows("SELECT DateCreated FROM [ErrorLog]"), Rows{"2079-06-06 23:59:00"});
}

TEST_F(PostgresRegister, BitsAreWrittenAndComparedAsOnSqlServer) {
  write("INSERT INTO [Parm] ([Section], [KeyName], [Locked]) VALUES ('s', 'on', 1)");
  write("INSERT INTO [Parm] ([Section], [KeyName], [Value], [Locked]) VALUES ('s', 'off', '', 0)");
  EXPECT_EQ(rows("SELECT KeyName FROM [Parm] WHERE Locked = 1"), Rows{"on"});
  EXPECT_EQ(rows("SELECT KeyName FROM [Parm] WHERE Locked = 'False'"), Rows{"off"});
  EXPECT_EQ(rows("SELECT KeyName FROM [Parm] WHERE Locked = 2 OR Locked < 0"), Rows{});
  EXPECT_EQ(rows("SELECT KeyName FROM [Parm] WHERE Locked IN (0, 1) ORDER BY Locked"),
            (Rows{"off", "on"}));
  write(
      "UPDATE [Parm] SET [Section] = 's', [KeyName] = 'off', [Value] = NULL, [Comment] = NULL, "
      "[Locked] = 1 WHERE [Section] = 'S' AND [KeyName] = 'OFF'");
  EXPECT_EQ(rows("SELECT Count(*) AS CountResultField FROM [Parm] WHERE Locked = 1"), Rows{"2"});
  // Booleans, which the provider reads as SQL Server's bits.
  EXPECT_EQ(rows("SELECT Locked, Value FROM [Parm] WHERE KeyName = 'off'"), Rows{"t|NULL"});
  EXPECT_EQ(refusal("SELECT * FROM [Parm] WHERE Locked = 'yes'"),
            "Conversion failed when converting the varchar value 'yes' to data type bit.");
  // True is a name, as SQL Server reads it.
  EXPECT_EQ(refusal("SELECT * FROM [Parm] WHERE Locked = True"), "column \"true\" does not exist");
}

TEST_F(PostgresRegister, IntsKeepWholeNumbersInIntsRange) {
  write("INSERT INTO [Zone] ([Zone], [Test]) VALUES ('North', 0)");
  write("INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('North', 2.7)");
  write("INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('NORTH', -2.7)");
  EXPECT_EQ(rows("SELECT Zone, Address FROM [ZonePool] ORDER BY Address"),
            (Rows{"NORTH|-2", "North|2"}));
  EXPECT_EQ(refusal("INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('North', 2147483648)"),
            kIntOverflowText);
  write(
      "UPDATE [ZonePool] SET [Zone] = 'north', [Address] = 5 WHERE [Zone] = 'North' AND "
      "[Address] = '2'");
  EXPECT_EQ(rows("SELECT * FROM [ZonePool] WHERE Zone = 'NoRtH' AND  Address = '5'"),
            Rows{"north|5"});
  EXPECT_EQ(refusal("SELECT * FROM [ZonePool] WHERE Zone = 'x' AND  Address = '3000000000'"),
            stringOverflowText("3000000000", false));
  // Where no literal is converted, PostgreSQL's own words: a known difference.
  EXPECT_EQ(refusal("UPDATE [ZonePool] SET [Address] = 2147483647 + 1"), "integer out of range");
}

TEST_F(PostgresRegister, ReservedNamesAndRelationsWork) {
  addUser("jdoe");
  write(
      "INSERT INTO [GroupCode] ([GroupCode], [Group], [Comment]) VALUES ('ADM', 'Admins', "
      "N'ntext')");
  // Keys of parents match without regard to case, as on SQL Server.
  write("INSERT INTO [GroupMember] ([GroupCode], [UserName]) VALUES ('adm', 'JDOE')");
  EXPECT_EQ(rows("SELECT [Group], GroupCode FROM [GroupCode] WHERE [Group] = 'ADMINS'"),
            Rows{"Admins|ADM"});
  EXPECT_EQ(rows("SELECT [GroupCode].GroupCode, [GroupMember].UserName FROM [GroupMember], "
                 "[GroupCode]  WHERE [GroupCode].GroupCode = [GroupMember].GroupCode AND "
                 "[GroupMember].UserName = 'jDoe'"),
            Rows{"ADM|JDOE"});
  EXPECT_EQ(rows("SELECT Count(*) AS CountResultField FROM [User], [GroupMember], [GroupCode]  "
                 "WHERE [User].UserName = [GroupMember].UserName AND [GroupMember].GroupCode = "
                 "[GroupCode].GroupCode AND [GroupCode].GroupCode = 'Adm' AND Authorized = 1"),
            Rows{"1"});
  EXPECT_EQ(refusal("INSERT INTO [GroupMember] ([GroupCode], [UserName]) VALUES ('NONE', 'jdoe')"),
            "insert or update on table \"groupmember\" violates foreign key constraint "
            "\"fk_groupmember_groupcode\"");
  EXPECT_NE(refusal("DELETE FROM [User] WHERE UserName = 'jdoe'"), "");
  write("DELETE FROM [GroupMember] WHERE GroupCode = 'ADM' AND  UserName = 'jdoe'");
  write("DELETE FROM [User] WHERE UserName = 'JDOE'");
  EXPECT_EQ(rows("SELECT Count(*) AS CountResultField FROM [User]"), Rows{"0"});
}

TEST_F(PostgresRegister, LikeTakesBackslashesAsTheyAre) {
  addUser("a", "C:\\dir_1");
  EXPECT_EQ(rows("SELECT UserName FROM [User] WHERE Bio LIKE 'c:\\DIR%'"), Rows{"a"});
  EXPECT_EQ(rows("SELECT UserName FROM [User] WHERE Bio LIKE 'c:\\\\dir%'"), Rows{});
  EXPECT_EQ(rows("SELECT UserName FROM [User] WHERE Bio LIKE 'c:!\\dir%' ESCAPE '!'"), Rows{"a"});
}

TEST_F(PostgresRegister, TextLongerThanItsColumnIsRefused) {
  EXPECT_EQ(refusal("INSERT INTO [Country] ([Country]) VALUES ('" + std::string(51, 'x') + "')"),
            kTextTooLong);
  std::string fifty;
  for (int i = 0; i < 50; ++i)
    fifty += "ü";
  write("INSERT INTO [Country] ([Country]) VALUES ('" + fifty + "')");
  addUser("long");
  write("UPDATE [User] SET [AuthorisationMessage] = '" + std::string(5000, 'y') +
        "' WHERE [UserName] = 'long'");
  EXPECT_EQ(refusal("UPDATE [User] SET [Bio] = '" + std::string(256, 'y') +
                    "' WHERE [UserName] = 'long'"),
            kTextTooLong);
}

}  // namespace
}  // namespace varnock::client::dialect
