// SPDX-License-Identifier: MIT
// The SQL Server dialect carried over to PostgreSQL, statement text in,
// statement text out, over the register's whole schema as the provider reads
// it from the database.
#include <gtest/gtest.h>

#include <string>

#include "automation/text.h"
#include "catalogue/catalogue.h"
#include "client/dialect/database_dialect.h"
#include "client/dialect/postgres_dialect.h"
#include "client/dialect/refusal.h"
#include "client/dialect/register_schema.h"

namespace varnock::client::dialect {
namespace {

// The register as the PostgreSQL schema query reports it: lower-case names,
// SQL Server's type names.
const RegisterSchema& registerSchema() {
  static const RegisterSchema schema = [] {
    RegisterSchema s;
    for (const catalogue::Table& t : catalogue::tables()) {
      for (const catalogue::Column& c : t.columns)
        s.addColumn(lowerCase(t.name), lowerCase(c.field), catalogue::sqlTypeName(c.type));
    }
    return s;
  }();
  return schema;
}

std::string dialectOf(const std::string& statement) {
  return toPostgresDialect(statement, registerSchema());
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

TEST(PostgresDialect, IsFoundByTheNameTheDriverGives) {
  const DatabaseDialect* dialect = dialectForDatabase("postgresql");
  ASSERT_NE(dialect, nullptr);
  EXPECT_EQ(dialect->kind, "PostgreSQL");
  EXPECT_NE(dialect->schemaQuery.find("information_schema.columns"), std::string_view::npos);
  EXPECT_EQ(dialect->translate("SELECT TOP 1 * FROM [Zone]", registerSchema()),
            "SELECT * FROM \"zone\" LIMIT 1");
}

TEST(PostgresDialect, CarriesTheRecordObjectsReadingStatementsOver) {
  EXPECT_EQ(dialectOf("SELECT * FROM [GroupMember] WHERE GroupCode = 'ADM' AND  UserName = 'jdoe'"),
            "SELECT * FROM \"groupmember\" WHERE GroupCode = 'ADM' AND  UserName = 'jdoe'");
  EXPECT_EQ(dialectOf("SELECT TOP 1 * FROM [Country] WHERE Country NOT IN  (SELECT TOP 2 Country "
                      "FROM [Country] WHERE Country LIKE 'N%' ORDER BY Country DESC) AND Country "
                      "LIKE 'N%' ORDER BY Country DESC"),
            "SELECT * FROM \"country\" WHERE Country NOT IN  (SELECT Country FROM \"country\" "
            "WHERE Country LIKE 'N%' ESCAPE '' ORDER BY Country DESC LIMIT 2) AND Country LIKE "
            "'N%' ESCAPE '' ORDER BY Country DESC LIMIT 1");
  EXPECT_EQ(dialectOf("SELECT Count(*) AS CountResultField FROM [User] WHERE Authorized = 1"),
            "SELECT CAST(Count(*) AS integer) AS CountResultField FROM \"user\" WHERE "
            "CAST(Authorized AS integer) = 1");
  EXPECT_EQ(dialectOf("SELECT * FROM [User], [ZoneAddress], [Zone]  WHERE [Zone].Zone = "
                      "[ZoneAddress].Zone AND [ZoneAddress].UserName = [User].UserName AND "
                      "[User].UserName = 'jdoe'"),
            "SELECT * FROM \"user\", \"zoneaddress\", \"zone\"  WHERE \"zone\".Zone = "
            "\"zoneaddress\".Zone AND \"zoneaddress\".UserName = \"user\".UserName AND "
            "\"user\".UserName = 'jdoe'");
  // The empty navigation column of the logs stays for the server to refuse.
  EXPECT_EQ(dialectOf("SELECT TOP 1 * FROM [ErrorLog] WHERE  NOT IN  (SELECT TOP 1  FROM "
                      "[ErrorLog])"),
            "SELECT * FROM \"errorlog\" WHERE  NOT IN  (SELECT FROM \"errorlog\" LIMIT 1) LIMIT 1");
}

TEST(PostgresDialect, CarriesTheRecordObjectsWritingStatementsOver) {
  EXPECT_EQ(dialectOf("INSERT INTO [User] ([UserName], [Lastname], [DateCreated], [Authorized], "
                      "[REMOTE_ADDR]) VALUES ('O''Brien', N'Zürich', '2000/5/4 13:45:30PM', 1, "
                      "'10.0.0.1')"),
            "INSERT INTO \"user\" (\"username\", \"lastname\", \"datecreated\", \"authorized\", "
            "\"remote_addr\") VALUES ('O''Brien',  'Zürich', '2000-05-04 13:46:00', TRUE, "
            "'10.0.0.1')");
  EXPECT_EQ(dialectOf("UPDATE [Parm] SET [Section] = 'S', [KeyName] = 'K', [Value] = NULL, "
                      "[Comment] = '', [Locked] = 0 WHERE [Section] = 'S' AND [KeyName] = 'K'"),
            "UPDATE \"parm\" SET \"section\" = 'S', \"keyname\" = 'K', \"value\" = NULL, "
            "\"comment\" = '', \"locked\" = FALSE WHERE \"section\" = 'S' AND \"keyname\" = 'K'");
  EXPECT_EQ(dialectOf("UPDATE [ZonePool] SET [Zone] = 'N', [Address] = 7 WHERE [Zone] = 'N' AND "
                      "[Address] = '7'"),
            "UPDATE \"zonepool\" SET \"zone\" = 'N', \"address\" = 7 WHERE \"zone\" = 'N' AND "
            "\"address\" = 7");
  EXPECT_EQ(dialectOf("DELETE FROM [ErrorLog] WHERE DateCreated = '5/4/2000 1:45:00 PM' AND  "
                      "UserId = 'u' AND  ErrorNumber = '5' AND  ErrorDescription = 'd' AND  "
                      "Message = ''"),
            "DELETE FROM \"errorlog\" WHERE DateCreated = '2000-05-04 13:45:00' AND  UserId = 'u' "
            "AND  ErrorNumber = 5 AND  ErrorDescription = 'd' AND  Message = ''");
}

TEST(PostgresDialect, FoldsQuotedNamesAndKeepsBooleanWordsNames) {
  EXPECT_EQ(dialectOf("SELECT [Group], \"GroupCode\", `Comment`, [odd\"name] FROM [GroupCode]"),
            "SELECT \"group\", \"groupcode\", \"comment\", \"odd\"\"name\" FROM \"groupcode\"");
  // True and False are names to SQL Server, which it refuses as columns.
  EXPECT_EQ(dialectOf("SELECT * FROM [Zone] WHERE Test = true OR [Zone].FALSE = 'x'"),
            "SELECT * FROM \"zone\" WHERE Test = \"true\" OR \"zone\".\"false\" = 'x'");
  // Bare names are PostgreSQL's to fold; literals and comments keep their case.
  EXPECT_EQ(dialectOf("SELECT UserName FROM [User] WHERE Lastname = 'MacDonald' -- [Keep]\n"),
            "SELECT UserName FROM \"user\" WHERE Lastname = 'MacDonald' -- [Keep]\n");
}

TEST(PostgresDialect, DropsTheUnicodePrefixAndNothingElse) {
  EXPECT_EQ(dialectOf("SELECT * FROM [User] WHERE UserName = N'Ann' OR UserName = n'N''x'"),
            "SELECT * FROM \"user\" WHERE UserName =  'Ann' OR UserName =  'N''x'");
  EXPECT_EQ(dialectOf("UPDATE [User] SET [Bio] = N'x' WHERE [UserName] = N'O'N'Brien'"),
            "UPDATE \"user\" SET \"bio\" =  'x' WHERE \"username\" =  'O' 'Brien'");
}

TEST(PostgresDialect, StoresBitsAsSqlServerConvertsThem) {
  EXPECT_EQ(dialectOf("INSERT INTO [Zone] VALUES ('a', 0), ('b', 2), ('c', -1), ('d', 0.0), "
                      "('e', 'TRUE'), ('f', N' false '), ('g', '0'), ('h', '')"),
            "INSERT INTO \"zone\" VALUES ('a', FALSE), ('b', TRUE), ('c', TRUE), ('d', FALSE), "
            "('e', TRUE), ('f', FALSE), ('g', FALSE), ('h', FALSE)");
  EXPECT_EQ(dialectOf("UPDATE [Zone] SET [Test] = 1, [Zone] = '1' WHERE [Zone] = 'a'"),
            "UPDATE \"zone\" SET \"test\" = TRUE, \"zone\" = '1' WHERE \"zone\" = 'a'");
  EXPECT_EQ(refusalOf("INSERT INTO [Zone] VALUES ('a', 'yes')"),
            "Conversion failed when converting the varchar value 'yes' to data type bit.");
  EXPECT_EQ(refusalOf("UPDATE [Parm] SET [Locked] = N'1.0'"),
            "Conversion failed when converting the nvarchar value '1.0' to data type bit.");
  // An expression is the database's to convert.
  EXPECT_EQ(dialectOf("UPDATE [Zone] SET [Test] = 1 - 1"), "UPDATE \"zone\" SET \"test\" = 1 - 1");
}

TEST(PostgresDialect, ComparesBitsWithNumbersAsNumbersAndWithStringsAsBits) {
  EXPECT_EQ(dialectOf("SELECT * FROM [User] WHERE Authorized = 2 OR 0 < [User].Authorized"),
            "SELECT * FROM \"user\" WHERE CAST(Authorized AS integer) = 2 OR 0 < "
            "CAST(\"user\".Authorized AS integer)");
  EXPECT_EQ(dialectOf("SELECT * FROM [Parm] WHERE Locked IN (1, -1, 0) AND Locked NOT BETWEEN 0 "
                      "AND 1"),
            "SELECT * FROM \"parm\" WHERE CAST(Locked AS integer) IN (1, -1, 0) AND "
            "CAST(Locked AS integer) NOT BETWEEN 0 AND 1");
  EXPECT_EQ(dialectOf("SELECT * FROM [Parm] WHERE Locked = 'True' AND 'false' <> Locked"),
            "SELECT * FROM \"parm\" WHERE Locked = TRUE AND FALSE <> Locked");
  EXPECT_EQ(refusalOf("SELECT * FROM [Parm] WHERE Locked = 'maybe'"),
            "Conversion failed when converting the varchar value 'maybe' to data type bit.");
}

TEST(PostgresDialect, StoresIntsAsWholeNumbersCutTowardsZero) {
  EXPECT_EQ(dialectOf("INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('a', 2.7), ('b', -2.7), "
                      "('c', 2.5e0), ('d', .5), ('e', - 2147483648), ('f', 2147483647.9), "
                      "('g', +007), ('h', 0x1F)"),
            "INSERT INTO \"zonepool\" (\"zone\", \"address\") VALUES ('a', 2), ('b', -2), "
            "('c', 2), ('d', 0), ('e',  -2147483648), ('f', 2147483647), ('g', 7), "
            "('h', 0x1F)");
  EXPECT_EQ(dialectOf("UPDATE [ErrorLog] SET [ErrorNumber] = -0.5, [Message] = 1.5"),
            "UPDATE \"errorlog\" SET \"errornumber\" = 0, \"message\" = 1.5");
  for (const std::string statement :
       {"INSERT INTO [ZonePool] VALUES ('a', 2147483648)",
        "INSERT INTO [ZonePool] VALUES ('a', -2147483649.5e0)",
        "UPDATE [ZonePool] SET [Address] = 1e10", "UPDATE [ZonePool] SET [Address] = -2147483649"})
    EXPECT_EQ(refusalOf(statement), kIntOverflowText) << statement;
  // Compared, a number is compared as it is; within an expression it is the
  // database's to convert.
  for (const std::string statement :
       {"SELECT * FROM \"zonepool\" WHERE Address = 2.5 OR Address > 3000000000",
        "UPDATE \"zonepool\" SET \"address\" = 2.5 * 2",
        "SELECT * FROM \"zonepool\" WHERE "
        "Address = 2 * 3"})
    EXPECT_EQ(dialectOf(statement), statement);
}

TEST(PostgresDialect, ReadsStringsForIntsAsSqlServerConvertsThem) {
  EXPECT_EQ(dialectOf("SELECT * FROM [ZonePool] WHERE Address = ' -012 ' OR Address IN ('', "
                      "'+5')"),
            "SELECT * FROM \"zonepool\" WHERE Address = -12 OR Address IN (0, 5)");
  EXPECT_EQ(refusalOf("SELECT * FROM [ZonePool] WHERE Address = '2.5'"),
            "Conversion failed when converting the varchar value '2.5' to data type int.");
  EXPECT_EQ(refusalOf("DELETE FROM [ZonePool] WHERE Zone = 'a' AND  Address = N'3000000000'"),
            "The conversion of the nvarchar value '3000000000' overflowed an int column.");
  EXPECT_EQ(refusalOf("SELECT * FROM [ZonePool] WHERE Address = '-2147483648'"), "");
}

TEST(PostgresDialect, ConvertsDatesWhereDateColumnsMeetThem) {
  EXPECT_EQ(dialectOf("SELECT * FROM [User] WHERE DateCreated BETWEEN '1/1/2000' AND N'May 4, "
                      "2000 1:45:29 PM' OR [User].AuthorisationDate IN ('20000504')"),
            "SELECT * FROM \"user\" WHERE DateCreated BETWEEN '2000-01-01 00:00:00' AND "
            "'2000-05-04 13:45:00' OR \"user\".AuthorisationDate IN ('2000-05-04 00:00:00')");
  EXPECT_EQ(refusalOf("UPDATE [LogFile] SET [LogDate] = 'soon'"), kDateConversionText);
  EXPECT_EQ(refusalOf("INSERT INTO [ZoneAddress] VALUES ('z', 'u', 1, '6/7/2079')"),
            kDateOutOfRangeText);
}

TEST(PostgresDialect, TakesLikePatternsWithoutAnEscapeCharacter) {
  EXPECT_EQ(dialectOf("SELECT * FROM [User] WHERE Bio NOT LIKE N'%\\%' OR Bio LIKE '!%' ESCAPE "
                      "'!' OR Bio LIKE Link"),
            "SELECT * FROM \"user\" WHERE Bio NOT LIKE  '%\\%' ESCAPE '' OR Bio LIKE '!%' ESCAPE "
            "'!' OR Bio LIKE Link");
}

TEST(PostgresDialect, CountsAreIntsWhereverTheyStand) {
  EXPECT_EQ(dialectOf("SELECT count(DISTINCT (Zone)) AS n, x.Count(1) FROM [ZonePool] HAVING "
                      "COUNT(*) > 1"),
            "SELECT CAST(count(DISTINCT (Zone)) AS integer) AS n, x.Count(1) FROM \"zonepool\" "
            "HAVING CAST(COUNT(*) AS integer) > 1");
  EXPECT_EQ(dialectOf("SELECT Count(* FROM [Zone]"), "SELECT Count(* FROM \"zone\"");
}

TEST(PostgresDialect, RefusesWhatItCannotCarryOver) {
  using namespace std::string_literals;
  EXPECT_EQ(refusalOf("UPDATE [User] SET [Bio] = N'a\0b' WHERE [UserName] = 'x'"s),
            kNulCharacterText);
  EXPECT_EQ(refusalOf("SELECT TOP 2.5 * FROM [Zone]"), kTopNotIntegerText);
  EXPECT_EQ(refusalOf("SELECT * FROM [Zone] WHERE Zone IN (SELECT TOP (-2) Zone FROM [Zone])"),
            kTopInvalidText);
}

}  // namespace
}  // namespace varnock::client::dialect
