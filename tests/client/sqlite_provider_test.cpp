// SPDX-License-Identifier: MIT
// The SQLite provider against a real register: the statements record objects
// send behave as they do on SQL Server. What every provider does is tested in
// conformance_test.cpp.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <sqlite3.h>

#include "client/client.h"
#include "client/sqlite/unicode_text.h"
#include "support/failure_of.h"
#include "support/temp_register.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"

namespace varnock::client {
namespace {

constexpr const char* kSource = "Varnock.SQLite";

class SqliteProvider : public ::testing::Test {
 protected:
  std::unique_ptr<Recordset> run(const std::string& statement) {
    return connection_->execute(statement);
  }

  // One field of every row, as text.
  std::vector<std::string> column(const std::string& statement, const std::string& field) {
    std::vector<std::string> values;
    for (auto rows = run(statement); !rows->eof(); rows->moveNext())
      values.push_back(toText(rows->field(field)));
    return values;
  }

  Variant single(const std::string& statement, const std::string& field) {
    auto rows = run(statement);
    EXPECT_FALSE(rows->eof()) << statement;
    return rows->field(field);
  }

  AutomationError refusal(const std::string& statement) {
    return testing::raisedBy([&] { run(statement); });
  }

  void addCountries() {
    for (const char* name : {"Norway", "chile", "Denmark", "Brazil", "austria"})
      run(std::string("INSERT INTO [Country] ([Country]) VALUES ('") + name + "')");
  }

  void addErrorLog(const std::string& date, const std::string& user) {
    run("INSERT INTO [ErrorLog] ([DateCreated], [UserId], [ErrorNumber], [ErrorDescription]) "
        "VALUES ('" +
        date + "', '" + user + "', 5, 'failed')");
  }

  testing::TempRegister register_;
  std::unique_ptr<Connection> connection_ = open(register_.dsn());
};

using Names = std::vector<std::string>;

TEST_F(SqliteProvider, TopLimitsOuterAndInnerQueriesOfTheNavigationStatements) {
  addCountries();
  EXPECT_EQ(column("SELECT TOP 1 * FROM [Country] WHERE Country NOT IN  (SELECT TOP 2 Country "
                   "FROM [Country] ORDER BY Country) ORDER BY Country",
                   "Country"),
            Names{"chile"});
  EXPECT_EQ(column("SELECT TOP 2 * FROM [Country] WHERE Country NOT IN  (SELECT TOP 1 Country "
                   "FROM [Country] WHERE Country <> 'chile' ORDER BY Country DESC) AND Country "
                   "<> 'chile' ORDER BY Country DESC",
                   "Country"),
            (Names{"Denmark", "Brazil"}));
  EXPECT_EQ(column("SELECT TOP 0 * FROM [Country]", "Country"), Names{});
  EXPECT_EQ(single("SELECT Count(*) AS CountResultField FROM [Country] WHERE Country NOT IN "
                   "('NORWAY', 'Chile')",
                   "CountResultField"),
            Variant(std::int32_t{3}));
}

TEST_F(SqliteProvider, TopCountsSqlServerRefusesAreRefusedWithItsMessages) {
  const AutomationError fraction = refusal("SELECT TOP 2.5 * FROM [Country]");
  EXPECT_EQ(fraction.number(), kCommandFailed);
  EXPECT_EQ(fraction.source(), kSource);
  EXPECT_EQ(fraction.description(),
            "The number of rows provided for a TOP or FETCH clauses row count parameter must be "
            "an integer.");
  EXPECT_EQ(refusal("SELECT * FROM [Country] WHERE Country IN (SELECT TOP -1 Country FROM "
                    "[Country])")
                .description(),
            "A TOP or FETCH clause contains an invalid value.");
}

TEST_F(SqliteProvider, TextComparesAndSortsWithoutRegardToCase) {
  addCountries();
  EXPECT_EQ(column("SELECT * FROM [Country] WHERE Country = 'NORWAY'", "Country"), Names{"Norway"});
  EXPECT_EQ(column("SELECT * FROM [Country] ORDER BY Country", "Country"),
            (Names{"austria", "Brazil", "chile", "Denmark", "Norway"}));
  EXPECT_EQ(refusal("INSERT INTO [Country] VALUES ('DENMARK')").description(),
            "UNIQUE constraint failed: Country.Country");
  // A member's group code in other letters still names its group.
  run("INSERT INTO [GroupCode] ([GroupCode], [Group]) VALUES ('ADM', 'Admins')");
  run("INSERT INTO [User] ([UserName], [Lastname], [Country], [Password], [Email], "
      "[Authorized]) VALUES ('jdoe', 'Doe', 'Chad', 'pw', 'j@x', 1)");
  run("INSERT INTO [GroupMember] ([GroupCode], [UserName]) VALUES ('adm', 'JDOE')");
  EXPECT_EQ(column("SELECT * FROM [GroupMember], [GroupCode]  WHERE [GroupCode].GroupCode = "
                   "[GroupMember].GroupCode AND [GroupMember].UserName = 'jdoe'",
                   "Group"),
            Names{"Admins"});
}

TEST_F(SqliteProvider, DatesInEveryAcceptedFormAreStoredRoundedToTheMinute) {
  for (const char* written : {"2000/5/4 13:45:00PM", "5/4/2000 1:45:00 PM", "2000/5/4 13:45:29"})
    addErrorLog(written, "ann");
  for (const char* written : {"2000-05-04", "May 4, 2000"})
    addErrorLog(written, "bob");
  addErrorLog("2000/5/4 13:45:30PM", "cy");
  const std::string stored = "SELECT DateCreated || '' AS Stored FROM [ErrorLog] WHERE UserId = ";
  EXPECT_EQ(column(stored + "'ann'", "Stored"), Names(3, "2000-05-04 13:45:00"));
  EXPECT_EQ(column(stored + "'bob'", "Stored"), Names(2, "2000-05-04 00:00:00"));
  EXPECT_EQ(column(stored + "'cy'", "Stored"), Names{"2000-05-04 13:46:00"});
  run("UPDATE [ErrorLog] SET [DateCreated] = '2000/12/31 23:59:31' WHERE UserId = 'cy'");
  EXPECT_EQ(column(stored + "'cy'", "Stored"), Names{"2001-01-01 00:00:00"});
  const Variant read = single("SELECT * FROM [ErrorLog] WHERE UserId = 'ann'", "DateCreated");
  ASSERT_EQ(read.type(), Variant::Type::Date);
  EXPECT_EQ(read.asDate().civil(), (CivilDateTime{2000, 5, 4, 13, 45, 0}));
}

TEST_F(SqliteProvider, DateComparisonsCompareDatesNotTexts) {
  addErrorLog("12/1/1999", "december");
  addErrorLog("5/4/2000 1:45:00 PM", "afternoon");
  addErrorLog("May 4, 2000", "midnight");
  addErrorLog("2000-05-10", "later");
  EXPECT_EQ(column("SELECT * FROM [ErrorLog] WHERE DateCreated > '5/4/2000' ORDER BY DateCreated",
                   "UserId"),
            (Names{"afternoon", "later"}));
  EXPECT_EQ(column("SELECT * FROM [ErrorLog] WHERE 'May 4, 2000' = DateCreated", "UserId"),
            Names{"midnight"});
  EXPECT_EQ(column("SELECT * FROM [ErrorLog] WHERE [ErrorLog].DateCreated BETWEEN '2000-01-01' "
                   "AND '5/4/2000 11:59 PM' OR DateCreated IN ('12/1/1999') ORDER BY "
                   "DateCreated DESC",
                   "UserId"),
            (Names{"afternoon", "midnight", "december"}));
}

TEST_F(SqliteProvider, ALiteralThatIsNoDateWhereADateIsNeededIsRefused) {
  const AutomationError insert =
      refusal("INSERT INTO [ErrorLog] VALUES ('someday', 'ann', 1, 'x', NULL)");
  EXPECT_EQ(insert.number(), kCommandFailed);
  EXPECT_EQ(insert.description(),
            "Conversion failed when converting date and/or time from character string.");
  EXPECT_EQ(refusal("SELECT * FROM [ErrorLog] WHERE DateCreated < 'someday'").description(),
            insert.description());
  EXPECT_EQ(single("SELECT Count(*) AS n FROM [ErrorLog]", "n"), Variant(std::int32_t{0}));
  // A date-like text in a text column stays the text it is.
  addErrorLog("5/4/2000", "5/4/2000");
  EXPECT_EQ(column("SELECT * FROM [ErrorLog] WHERE UserId = '5/4/2000'", "UserId"),
            Names{"5/4/2000"});
}

// Without a declared type a value comes back as what SQLite holds: integers
// as Long while they fit SQL Server's int.
TEST_F(SqliteProvider, ExpressionsComeBackAsWhatTheyHold) {
  EXPECT_EQ(single("SELECT 7 AS Seven", "Seven"), Variant(std::int32_t{7}));
  EXPECT_EQ(single("SELECT 2.5 AS Half", "Half"), Variant(2.5));
  EXPECT_EQ(single("SELECT 3000000000 AS Big", "Big"), Variant(3000000000.0));
  EXPECT_EQ(single("SELECT NULL AS Missing", "Missing"), Variant::null());
}

TEST_F(SqliteProvider, KeysRelationsAndNotNullAreEnforced) {
  run("INSERT INTO [Zone] ([Zone], [Test]) VALUES ('north', 1)");
  run("INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('north', 1)");
  auto expectRefused = [&](const std::string& statement, const std::string& description) {
    const AutomationError e = refusal(statement);
    EXPECT_EQ(e.number(), kCommandFailed) << statement;
    EXPECT_EQ(e.source(), kSource) << statement;
    EXPECT_EQ(e.description(), description) << statement;
  };
  expectRefused("INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('NORTH', 1)",
                "UNIQUE constraint failed: ZonePool.Zone, ZonePool.Address");
  expectRefused("INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('west', 2)",
                "FOREIGN KEY constraint failed");
  expectRefused("INSERT INTO [GroupMember] ([GroupCode], [UserName]) VALUES ('ADM', 'jdoe')",
                "FOREIGN KEY constraint failed");
  expectRefused("DELETE FROM [Zone] WHERE Zone = 'north'", "FOREIGN KEY constraint failed");
  expectRefused(
      "INSERT INTO [User] ([UserName], [Country], [Password], [Email], [Authorized]) "
      "VALUES ('jdoe', 'Chad', 'pw', 'j@x', 1)",
      "NOT NULL constraint failed: User.Lastname");
  // The logs have no key: the same entry twice is two entries.
  addErrorLog("5/4/2000", "ann");
  addErrorLog("5/4/2000", "ann");
  EXPECT_EQ(single("SELECT Count(*) AS n FROM [ErrorLog]", "n"), Variant(std::int32_t{2}));
}

TEST_F(SqliteProvider, RejectedStatementsCarrySqlitesOwnMessageAndRunOneAtATime) {
  EXPECT_EQ(refusal("SELECT * FROM [Nowhere]").description(), "no such table: Nowhere");
  // A double-quoted word names a column, as on SQL Server; it is no literal.
  EXPECT_EQ(refusal("SELECT * FROM [Country] WHERE Country = \"Chad\"").description(),
            "no such column: Chad");
  EXPECT_EQ(refusal("INSERT INTO [Country] VALUES ('Chad'); INSERT INTO [Country] VALUES ('Peru')")
                .number(),
            kCommandFailed);
  EXPECT_EQ(single("SELECT Count(*) AS n FROM [Country]", "n"), Variant(std::int32_t{0}));
  run("INSERT INTO [Country] VALUES ('Chad'); -- one statement, one separator\n");
  EXPECT_EQ(single("SELECT Count(*) AS n FROM [Country]", "n"), Variant(std::int32_t{1}));
}

TEST_F(SqliteProvider, ConditionsReachNoFunctionThatDisclosesMemoryOrFiles) {
  for (const char* condition :
       {"fts3_tokenizer('simple') IS NOT NULL", "load_extension('libc.so.6') IS NULL"}) {
    const AutomationError e = refusal(std::string("SELECT * FROM [Country] WHERE ") + condition);
    EXPECT_EQ(e.number(), kCommandFailed);
    EXPECT_NE(e.description().find("not authorized"), std::string::npos) << e.description();
  }
}

}  // namespace
}  // namespace varnock::client

namespace varnock::client {
namespace {

// Another program changes the register's tables while a session keeps
// statements prepared for them: the session follows.
TEST_F(SqliteProvider, AKeptSessionFollowsTablesChangedByAnotherProgram) {
  addCountries();
  const std::string every = "SELECT * FROM [Country] WHERE Country = 'Norway'";
  for (int i = 0; i < 2; ++i)
    EXPECT_EQ(column(every, "Country"), Names{"Norway"});
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(register_.path().c_str(), &other), SQLITE_OK);
  ASSERT_EQ(client::sqlite::registerUnicodeText(other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other,
                         "ALTER TABLE Country ADD COLUMN Founded smalldatetime; "
                         "UPDATE Country SET Founded = '1905-06-07 00:00:00'",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(other);
  // The new column is there, read as what its declared type says.
  const Variant founded = single(every, "Founded");
  ASSERT_EQ(founded.type(), Variant::Type::Date) << toText(founded);
  // And a statement met for the first time is carried over for the new
  // column: a date written in another form is compared as a date.
  EXPECT_EQ(column("SELECT * FROM [Country] WHERE Founded = 'June 7, 1905'", "Country").size(), 5u);
}

}  // namespace
}  // namespace varnock::client
