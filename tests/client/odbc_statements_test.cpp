// SPDX-License-Identifier: MIT
// Scripts cut into what ODBC drivers run per call: GO batches for SQL
// Server, single statements for SQLite (whose triggers hold semicolons).
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"
#include "client/odbc/statement_split.h"
#include "register/ddl.h"

namespace varnock::client::odbc {
namespace {

using Pieces = std::vector<std::string_view>;

TEST(SplitStatements, SemicolonsEndStatementsOnlyOutsideLiteralsNamesAndComments) {
  EXPECT_EQ(splitStatements("SELECT 1"), (Pieces{"SELECT 1"}));
  EXPECT_EQ(splitStatements("SELECT 1;"), (Pieces{"SELECT 1"}));
  EXPECT_EQ(splitStatements("SELECT 1; SELECT 2"), (Pieces{"SELECT 1", "SELECT 2"}));
  EXPECT_EQ(splitStatements("SELECT 'a;b' AS [c;d] -- e;f\n; ;"),
            (Pieces{"SELECT 'a;b' AS [c;d] -- e;f"}));
  EXPECT_EQ(splitStatements("SELECT \"x;\" /* ; */ FROM t"),
            (Pieces{"SELECT \"x;\" /* ; */ FROM t"}));
  EXPECT_TRUE(splitStatements("").empty());
  EXPECT_TRUE(splitStatements(" ; -- nothing\n ;").empty());
  // A BEGIN outside a trigger opens no block.
  EXPECT_EQ(splitStatements("BEGIN; SELECT 1; COMMIT;"), (Pieces{"BEGIN", "SELECT 1", "COMMIT"}));
}

TEST(SplitStatements, ATriggerBodyIsOneStatementWithItsCaseExpressions) {
  const std::string_view trigger =
      "CREATE TEMP TRIGGER t AFTER INSERT ON a WHEN CASE WHEN 1 THEN 1 END BEGIN\n"
      "  SELECT CASE WHEN 1 THEN 'x;' ELSE 2 END;\n"
      "  UPDATE a SET b = 1;\n"
      "END";
  EXPECT_EQ(splitStatements(std::string(trigger) + ";\nSELECT 2;"), (Pieces{trigger, "SELECT 2"}));
}

TEST(SplitStatements, TheRegistersSqliteScriptComesApartIntoWholeStatements) {
  const std::string script = schema::registerDdl(schema::Dialect::Sqlite);
  const std::vector<std::string_view> statements = splitStatements(script);
  int triggers = 0;
  int tables = 0;
  for (const std::string_view statement : statements) {
    if (statement.find("CREATE TRIGGER") != std::string_view::npos) {
      ++triggers;
      EXPECT_EQ(statement.substr(statement.size() - 3), "END") << statement;
    }
    if (statement.find("CREATE TABLE") != std::string_view::npos) ++tables;
  }
  EXPECT_GT(triggers, 0);
  EXPECT_EQ(tables, static_cast<int>(catalogue::tables().size()));
  EXPECT_TRUE(isTransactionControl(statements[1]));  // after the journal mode
  EXPECT_TRUE(isTransactionControl(statements.back()));
}

TEST(SplitStatements, CommentsGoAndLiteralsStay) {
  EXPECT_EQ(withoutComments("-- the register's\nSELECT '--x' /* it's */ FROM t -- end"),
            " \nSELECT '--x'   FROM t  ");
  EXPECT_EQ(withoutComments("SELECT [a--b]"), "SELECT [a--b]");
}

TEST(SplitBatches, LinesHoldingOnlyGoSeparateBatches) {
  EXPECT_EQ(splitBatches("CREATE TABLE a (x int)\nGO\nCREATE TABLE b (y int)\n go \r\n"),
            (Pieces{"CREATE TABLE a (x int)\n", "CREATE TABLE b (y int)\n"}));
  // GO inside a line, or a word that begins with it, separates nothing.
  EXPECT_EQ(splitBatches("SELECT 1 GO\nGOTO x\nGO;"), (Pieces{"SELECT 1 GO\nGOTO x\nGO;"}));
  EXPECT_EQ(splitBatches("GO\nGo\n\nGO"), Pieces{});
  EXPECT_EQ(splitBatches("SELECT 1"), (Pieces{"SELECT 1"}));
  EXPECT_EQ(splitBatches(schema::registerDdl(schema::Dialect::SqlServer)).size(),
            catalogue::tables().size() + 1);
}

TEST(SplitBatches, TheTablesAScriptCreatesAreTheCataloguesTables) {
  std::vector<std::string> expected;
  for (const catalogue::Table& table : catalogue::tables())
    expected.emplace_back(table.name);
  std::sort(expected.begin(), expected.end());
  // In the order the relations need; compared as sets.
  for (const auto kind : {schema::Dialect::SqlServer, schema::Dialect::Sqlite}) {
    std::vector<std::string> created = createdTables(schema::registerDdl(kind));
    std::sort(created.begin(), created.end());
    EXPECT_EQ(created, expected);
  }
  EXPECT_EQ(createdTables("CREATE TABLE IF NOT EXISTS main.\"Zone Pool\" (x int); "
                          "SELECT 'CREATE TABLE x'; CREATE INDEX i ON t (x)"),
            std::vector<std::string>{"Zone Pool"});
}

TEST(SplitBatches, TransactionControlIsToldFromBlocks) {
  for (const char* control : {"BEGIN", "begin transaction", "BEGIN IMMEDIATE", "BEGIN TRAN",
                              "START TRANSACTION", "COMMIT", "END", "ROLLBACK"}) {
    EXPECT_TRUE(isTransactionControl(control)) << control;
  }
  for (const char* other :
       {"BEGIN TRY SELECT 1 END TRY", "SELECT 'BEGIN'", "CREATE TABLE t (x int)", "", "START x"}) {
    EXPECT_FALSE(isTransactionControl(other)) << other;
  }
}

}  // namespace
}  // namespace varnock::client::odbc
