// SPDX-License-Identifier: MIT
// The SQL Server dialect carried over to SQLite, statement text in,
// statement text out.
#include <gtest/gtest.h>

#include <string>

#include "client/dialect/refusal.h"
#include "client/dialect/register_schema.h"
#include "client/dialect/sql_tokens.h"
#include "client/dialect/sqlite_dialect.h"
#include "client/dialect/stored_dates.h"

namespace varnock::client::dialect {
namespace {

// A register of two tables: ErrorLog with one date column among text and a
// number, and User with two dates.
RegisterSchema twoTables() {
  RegisterSchema schema;
  schema.addColumn("ErrorLog", "DateCreated", "smalldatetime");
  schema.addColumn("ErrorLog", "UserId", "nvarchar(50)");
  schema.addColumn("ErrorLog", "ErrorNumber", "int");
  schema.addColumn("User", "UserName", "nvarchar(50)");
  schema.addColumn("User", "DateCreated", "SMALLDATETIME");
  schema.addColumn("User", "AuthorisationDate", "smalldatetime");
  return schema;
}

std::string dialectOf(const std::string& statement) {
  return toSqliteDialect(statement, twoTables());
}

// The description of the failure a statement raises; "" when it raises none.
std::string refusalOf(const std::string& statement) {
  try {
    dialectOf(statement);
  } catch (const StatementRefused& e) {
    return e.what();
  }
  return "";
}

TEST(SqlTokens, GiveTheTextBackWhateverItHolds) {
  for (const std::string text :
       {"SELECT [a]]b].\"c\"\"d\" FROM `t` -- TOP 1\n/* 'x */ WHERE x = 'it''s' || N'y'",
        "SELECT 'unterminated", "SELECT [open", "x /* open comment", ".5e3+0x1F<>!=<=>=", ""}) {
    EXPECT_EQ(joinTokens(tokenize(text)), text);
  }
}

TEST(SqlTokens, ReadNamesAndLiteralsAsTheServerDoes) {
  const auto tokens = tokenize("[Zone]]Pool] \"a\"\"b\" 'O''Brien' N'x'");
  const auto sig = significantPositions(tokens);
  ASSERT_EQ(sig.size(), 4u);
  EXPECT_EQ(nameOf(tokens[sig[0]]), "Zone]Pool");
  EXPECT_EQ(nameOf(tokens[sig[1]]), "a\"b");
  EXPECT_EQ(stringValue(tokens[sig[2]]), "O'Brien");
  EXPECT_EQ(stringValue(tokens[sig[3]]), "x");
  EXPECT_EQ(quoted("O'Brien"), "'O''Brien'");
}

TEST(TopClause, BecomesALimitAtTheEndOfItsOwnSelect) {
  EXPECT_EQ(dialectOf("SELECT TOP 1 * FROM [Country] WHERE Country NOT IN  (SELECT TOP 2 Country "
                      "FROM [Country] ORDER BY Country) ORDER BY Country"),
            "SELECT * FROM [Country] WHERE Country NOT IN  (SELECT Country FROM [Country] ORDER "
            "BY Country LIMIT 2) ORDER BY Country LIMIT 1");
  EXPECT_EQ(dialectOf("select distinct top (3) Zone from [Zone]"),
            "select distinct Zone from [Zone] LIMIT 3");
  EXPECT_EQ(dialectOf("SELECT TOP 007 * FROM [Zone] -- first ones\n"),
            "SELECT * FROM [Zone] LIMIT 7 -- first ones\n");
  EXPECT_EQ(dialectOf("SELECT TOP 1 * FROM [Zone];"), "SELECT * FROM [Zone] LIMIT 1;");
  EXPECT_EQ(dialectOf("SELECT TOP 0 * FROM (SELECT TOP 5 * FROM [Zone]) AS z"),
            "SELECT * FROM (SELECT * FROM [Zone] LIMIT 5) AS z LIMIT 0");
}

TEST(TopClause, LeavesLiteralsCommentsAndOtherUsesOfTheWordAlone) {
  for (const std::string text :
       {"SELECT * FROM [Country] WHERE Country = 'SELECT TOP 5 it''s (x)'",
        "SELECT [Top] FROM [Zone] /* SELECT TOP 2 */", "SELECT Top FROM [Zone]",
        "SELECT * FROM [Zone] ORDER BY Zone LIMIT 3"}) {
    EXPECT_EQ(dialectOf(text), text);
  }
}

TEST(TopClause, RefusesCountsThatAreNotWholeOrNotPositive) {
  EXPECT_EQ(refusalOf("SELECT TOP 2.5 * FROM [Zone]"), kTopNotIntegerText);
  EXPECT_EQ(refusalOf("SELECT TOP 1e2 * FROM [Zone]"), kTopNotIntegerText);
  EXPECT_EQ(refusalOf("SELECT TOP 99999999999999999999 * FROM [Zone]"), kTopNotIntegerText);
  EXPECT_EQ(refusalOf("SELECT TOP -1 * FROM [Zone]"), kTopInvalidText);
  EXPECT_EQ(refusalOf("SELECT * FROM [Zone] WHERE Zone IN (SELECT TOP (-2) Zone FROM [Zone])"),
            kTopInvalidText);
  EXPECT_EQ(refusalOf("SELECT TOP 9223372036854775807 * FROM [Zone]"), "");
  EXPECT_EQ(refusalOf("SELECT TOP -0 * FROM [Zone]"), "");
}

TEST(TopClause, KeepsTheEmptyNavigationColumnForTheServerToRefuse) {
  EXPECT_EQ(dialectOf("SELECT TOP 1 * FROM [ErrorLog] WHERE  NOT IN  (SELECT TOP 1  FROM "
                      "[ErrorLog])"),
            "SELECT * FROM [ErrorLog] WHERE  NOT IN  (SELECT FROM [ErrorLog] LIMIT 1) LIMIT 1");
}

TEST(UnicodeLiteral, LosesItsPrefixAndNothingElse) {
  EXPECT_EQ(dialectOf("SELECT * FROM [User] WHERE UserName = N'Ann' OR UserName = n'N''x'"),
            "SELECT * FROM [User] WHERE UserName =  'Ann' OR UserName =  'N''x'");
  // Two literals side by side stay two literals, which the server refuses.
  EXPECT_EQ(dialectOf("UPDATE [User] SET [Bio] = N'x' WHERE [UserName] = N'O'N'Brien'"),
            "UPDATE [User] SET [Bio] =  'x' WHERE [UserName] =  'O' 'Brien'");
}

TEST(BooleanWords, StayNamesAsTheServerReadsThem) {
  // A Boolean rendered into a number column is the bare word True, which the
  // server reads as a column name; SQLite alone would store 1.
  EXPECT_EQ(dialectOf("INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('North', True)"),
            "INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('North', [True])");
  EXPECT_EQ(dialectOf("SELECT * FROM [User] WHERE Authorized = false OR [User].TRUE = 'True'"),
            "SELECT * FROM [User] WHERE Authorized = [false] OR [User].[TRUE] = 'True'");
  EXPECT_EQ(dialectOf("SELECT [True], Trueness FROM [Zone] -- True\n"),
            "SELECT [True], Trueness FROM [Zone] -- True\n");
}

TEST(NulCharacters, AreSpelledOutInsideTheirLiteral) {
  using namespace std::string_literals;
  EXPECT_EQ(dialectOf("UPDATE [User] SET [Bio] = N'a\0b''\0' WHERE [UserName] = 'x'"s),
            "UPDATE [User] SET [Bio] = ('a' || char(0) || 'b''' || char(0) || '') WHERE "
            "[UserName] = 'x'");
}

TEST(DateLiterals, AreStoredDatesInInsertsWithOrWithoutColumnList) {
  EXPECT_EQ(dialectOf("INSERT INTO [ErrorLog] ([UserId], [DateCreated], [ErrorNumber]) VALUES "
                      "('5/4/2000', '2000/5/4 13:45:00PM', 5)"),
            "INSERT INTO [ErrorLog] ([UserId], [DateCreated], [ErrorNumber]) VALUES "
            "('5/4/2000', '2000-05-04 13:45:00', 5)");
  EXPECT_EQ(dialectOf("INSERT INTO [ErrorLog] VALUES ('May 4, 2000', 'u', 1), ('2000-05-05', "
                      "'v', 2)"),
            "INSERT INTO [ErrorLog] VALUES ('2000-05-04 00:00:00', 'u', 1), ('2000-05-05 "
            "00:00:00', 'v', 2)");
  // A value that is an expression is the server's to convert.
  EXPECT_EQ(dialectOf("INSERT INTO [ErrorLog] VALUES ('x' || 'y', 'u', 1)"),
            "INSERT INTO [ErrorLog] VALUES ('x' || 'y', 'u', 1)");
}

TEST(DateLiterals, AreStoredDatesInAssignmentsAndComparisons) {
  EXPECT_EQ(dialectOf("UPDATE [User] SET [UserName] = '1/2/2000', [DateCreated] = '2000/5/4 "
                      "13:45:00', [AuthorisationDate] = NULL WHERE [UserName] = 'a'"),
            "UPDATE [User] SET [UserName] = '1/2/2000', [DateCreated] = '2000-05-04 13:45:00', "
            "[AuthorisationDate] = NULL WHERE [UserName] = 'a'");
  EXPECT_EQ(dialectOf("SELECT * FROM [ErrorLog] WHERE DateCreated > '5/4/2000' AND 'May 4, "
                      "2000' <= [ErrorLog].[DateCreated]"),
            "SELECT * FROM [ErrorLog] WHERE DateCreated > '2000-05-04 00:00:00' AND "
            "'2000-05-04 00:00:00' <= [ErrorLog].[DateCreated]");
  EXPECT_EQ(dialectOf("DELETE FROM [ErrorLog] WHERE DateCreated = '5/4/2000 1:45:00 PM' AND  "
                      "UserId = '5/4/2000'"),
            "DELETE FROM [ErrorLog] WHERE DateCreated = '2000-05-04 13:45:00' AND  UserId = "
            "'5/4/2000'");
  EXPECT_EQ(dialectOf("SELECT * FROM [User] WHERE DateCreated NOT BETWEEN '1/1/2000' AND "
                      "'12/31/2000' OR AuthorisationDate IN ('5/4/2000', N'5/5/2000')"),
            "SELECT * FROM [User] WHERE DateCreated NOT BETWEEN '2000-01-01 00:00:00' AND "
            "'2000-12-31 00:00:00' OR AuthorisationDate IN ('2000-05-04 00:00:00', "
            "'2000-05-05 00:00:00')");
}

TEST(DateLiterals, AreLeftAloneWhereNoDateColumnMeetsThem) {
  for (const std::string text :
       {"SELECT * FROM [ErrorLog] WHERE UserId = 'not a date' AND ErrorNumber = '12'",
        "SELECT * FROM [ErrorLog] WHERE DateCreated LIKE '2000%'",
        "SELECT * FROM [ErrorLog] WHERE 'x' = lower(DateCreated)",
        "SELECT * FROM [Country] WHERE DateCreated = 'not a date'",
        "INSERT INTO [Country] VALUES ('x')"}) {
    EXPECT_EQ(dialectOf(text), text);
  }
}

TEST(DateLiterals, ThatAreNoDatesRefuseTheStatement) {
  EXPECT_EQ(refusalOf("SELECT * FROM [ErrorLog] WHERE DateCreated = 'soon'"), kDateConversionText);
  EXPECT_EQ(refusalOf("INSERT INTO [ErrorLog] VALUES ('2000/13/1', 'u', 1)"), kDateConversionText);
  EXPECT_EQ(refusalOf("UPDATE [User] SET [DateCreated] = '1/1/1800'"), kDateOutOfRangeText);
}

TEST(StoredDateText, RoundsToTheMinuteAsSmalldatetimeDoes) {
  const std::pair<const char*, const char*> forms[] = {
      {"2000/5/4 13:45:00PM", "2000-05-04 13:45:00"},
      {"5/4/2000 1:45:00 PM", "2000-05-04 13:45:00"},
      {"2000-05-04", "2000-05-04 00:00:00"},
      {"May 4, 2000", "2000-05-04 00:00:00"},
      {" 20000504 13:45 ", "2000-05-04 13:45:00"},
      {"2000/5/4 13:45:29PM", "2000-05-04 13:45:00"},
      {"2000/5/4 13:45:30PM", "2000-05-04 13:46:00"},
      {"12/31/1999 11:59:30 PM", "2000-01-01 00:00:00"},
      {"1:45 PM", "1900-01-01 13:45:00"},
      {"", "1900-01-01 00:00:00"},
      {"1/1/1900", "1900-01-01 00:00:00"},
      {"6/6/2079 11:59:29 PM", "2079-06-06 23:59:00"}};
  for (const auto& [written, stored] : forms)
    EXPECT_EQ(storedDateText(written), stored) << written;
}

TEST(StoredDateText, RefusesWhatSmalldatetimeCannotHold) {
  auto descriptionOf = [](const char* text) -> std::string {
    try {
      storedDateText(text);
    } catch (const StatementRefused& e) {
      return std::string(e.what());
    }
    return "";
  };
  EXPECT_EQ(descriptionOf("tomorrow"), kDateConversionText);
  EXPECT_EQ(descriptionOf("2/30/2000"), kDateConversionText);
  EXPECT_EQ(descriptionOf("12/31/1899 11:59 PM"), kDateOutOfRangeText);
  EXPECT_EQ(descriptionOf("6/6/2079 11:59:30 PM"), kDateOutOfRangeText);
  EXPECT_EQ(descriptionOf("6/7/2079"), kDateOutOfRangeText);
}

TEST(StoredDate, ReadsTheStoredFormBack) {
  const std::optional<Date> date = storedDate("2000-05-04 13:46:00");
  ASSERT_TRUE(date.has_value());
  EXPECT_EQ(date->civil(), (CivilDateTime{2000, 5, 4, 13, 46, 0}));
  EXPECT_FALSE(storedDate("not stored by us").has_value());
}

}  // namespace
}  // namespace varnock::client::dialect
