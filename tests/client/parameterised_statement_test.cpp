// SPDX-License-Identifier: MIT
// Literal values taken out of statements as parameters: which literals are
// taken, and that SQLite answers the parameterised statement exactly as it
// answers the statement with its literals in place.
#include "client/dialect/parameterised_statement.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <string>
#include <vector>

namespace varnock::client::dialect {
namespace {

std::vector<std::string> shown(const ParameterisedStatement& p) {
  std::vector<std::string> values;
  for (const LiteralValue& v : p.values)
    values.push_back(v.kind == LiteralValue::Kind::Integer ? "int " + std::to_string(v.integer)
                                                           : "text " + v.text);
  return values;
}

TEST(Parameterise, TakesOutTheValuesOfConditionsRowsAndLimits) {
  const auto where = parameterise("SELECT * FROM [User] WHERE UserName = 'O''Brien' AND Age > 5");
  EXPECT_EQ(where.text, "SELECT * FROM [User] WHERE UserName = ?1 AND Age > ?2");
  EXPECT_EQ(shown(where), (std::vector<std::string>{"text O'Brien", "int 5"}));

  const auto insert = parameterise("INSERT INTO [Zone] ([Zone], [Pool]) VALUES ('North', -3)", 4);
  EXPECT_EQ(insert.text, "INSERT INTO [Zone] ([Zone], [Pool]) VALUES (?4, -?5)");
  EXPECT_EQ(shown(insert), (std::vector<std::string>{"text North", "int 3"}));

  const auto update = parameterise("UPDATE [Parm] SET [Value] = '' WHERE [Key] = 'a'");
  EXPECT_EQ(update.text, "UPDATE [Parm] SET [Value] = ?1 WHERE [Key] = ?2");

  const auto nested = parameterise(
      "SELECT * FROM [User] WHERE UserName NOT IN (SELECT UserName FROM [User] LIMIT 100) "
      "LIMIT 1");
  EXPECT_EQ(nested.text,
            "SELECT * FROM [User] WHERE UserName NOT IN (SELECT UserName FROM [User] LIMIT ?1) "
            "LIMIT ?2");
}

TEST(Parameterise, LeavesLiteralsWhoseTextOrPlaceIsPartOfTheMeaning) {
  // Result columns are named by their text; ORDER BY 2 is a column's place.
  const auto columns = parameterise(
      "SELECT 'a', 5, coalesce(x, 'z') AS 'alias' FROM t WHERE y = 'b' GROUP BY 1 ORDER BY 2, "
      "'c' LIMIT 3");
  EXPECT_EQ(columns.text,
            "SELECT 'a', 5, coalesce(x, 'z') AS 'alias' FROM t WHERE y = ?1 GROUP BY 1 ORDER BY "
            "2, 'c' LIMIT ?2");
  // Sub-queries have result columns of their own; the outer clause resumes.
  const auto sub = parameterise("SELECT * FROM t WHERE a IN (SELECT 'x' FROM u) AND b = 'y'");
  EXPECT_EQ(sub.text, "SELECT * FROM t WHERE a IN (SELECT 'x' FROM u) AND b = ?1");
  // A sub-query that is a result column is wholly that column's name.
  const std::string column = "SELECT (SELECT n FROM u WHERE a = 'x' LIMIT 1) FROM t";
  EXPECT_EQ(parameterise(column).text, column);
  // Decimals, exponents and hex are read by the database's own conversion;
  // blobs, N'' texts, numbers past 64 bits and parameters already there stay.
  const std::string kept =
      "SELECT * FROM t WHERE a = 2.5 OR a = 1e3 OR a = 0x1F OR b = X'00' OR c = N'n' OR "
      "d = 9223372036854775808 OR e = ?1";
  EXPECT_EQ(parameterise(kept, 2).text, kept);
  EXPECT_EQ(parameterise("SELECT * FROM t WHERE a = 9223372036854775807").text,
            "SELECT * FROM t WHERE a = ?1");
}

TEST(Parameterise, LeavesStatementsThatAreNotReadsOrWritesOfRows) {
  for (const char* statement : {"PRAGMA journal_mode = 'wal'", "CREATE TABLE t (a int DEFAULT 5)",
                                "BEGIN TRANSACTION", "  /* comment */ DROP TABLE t", "", "   "}) {
    const auto p = parameterise(statement);
    EXPECT_EQ(p.text, statement);
    EXPECT_TRUE(p.values.empty()) << statement;
  }
  EXPECT_EQ(parameterise(" -- note\n select * from t where a = 'x'").text,
            " -- note\n select * from t where a = ?1");
}

// ---- the same answers from SQLite ----

struct Answer {
  std::vector<std::string> names;
  std::vector<std::string> cells;  // storage class and text of every value
  int code = SQLITE_OK;
};

Answer run(sqlite3* db, const std::string& sql, const std::vector<LiteralValue>& values) {
  Answer answer;
  sqlite3_stmt* s = nullptr;
  answer.code = sqlite3_prepare_v2(db, sql.c_str(), -1, &s, nullptr);
  if (answer.code != SQLITE_OK) return answer;
  int i = 0;
  for (const LiteralValue& v : values) {
    if (v.kind == LiteralValue::Kind::Integer) {
      sqlite3_bind_int64(s, ++i, v.integer);
    } else {
      sqlite3_bind_text(s, ++i, v.text.c_str(), static_cast<int>(v.text.size()), SQLITE_TRANSIENT);
    }
  }
  for (int c = 0; c < sqlite3_column_count(s); ++c)
    answer.names.emplace_back(sqlite3_column_name(s, c));
  while ((answer.code = sqlite3_step(s)) == SQLITE_ROW) {
    for (int c = 0; c < sqlite3_column_count(s); ++c) {
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(s, c));
      answer.cells.push_back(std::to_string(sqlite3_column_type(s, c)) + ":" +
                             (text != nullptr ? text : "NULL"));
    }
  }
  sqlite3_finalize(s);
  return answer;
}

TEST(Parameterise, SqliteAnswersTheParameterisedStatementAsTheLiteralOne) {
  sqlite3* db = nullptr;
  ASSERT_EQ(sqlite3_open(":memory:", &db), SQLITE_OK);
  ASSERT_EQ(
      sqlite3_exec(db,
                   "CREATE TABLE t (name nvarchar(20) COLLATE NOCASE, n int, d smalldatetime, "
                   "b bit, r real, x);"
                   "INSERT INTO t VALUES ('Alpha', 5, '2001-02-03 04:05:00', 1, 2.5, '7'),"
                   "('beta', -3, '1999-12-31 23:59:00', 0, NULL, 7),"
                   "('O''Brien', 9223372036854775807, NULL, NULL, 1e3, 'x%y');",
                   nullptr, nullptr, nullptr),
      SQLITE_OK);
  for (const char* statement : {
           "SELECT * FROM t WHERE name = 'ALPHA'",
           "SELECT * FROM t WHERE n = '5'",
           "SELECT * FROM t WHERE x = 7",
           "SELECT * FROM t WHERE x = '7'",
           "SELECT * FROM t WHERE name > 'alpha' ORDER BY name",
           "SELECT * FROM t WHERE d < '2000-01-01 00:00:00'",
           "SELECT * FROM t WHERE n = -3 OR n = 9223372036854775807",
           "SELECT * FROM t WHERE name = 'O''Brien'",
           "SELECT * FROM t WHERE x LIKE 'x\\%y' ESCAPE '\\'",
           "SELECT * FROM t WHERE typeof('5') = 'text' AND b = 1",
           "SELECT * FROM t WHERE name IN ('alpha', 'BETA') ORDER BY 2 LIMIT 1",
           "SELECT * FROM t ORDER BY n DESC LIMIT 2 OFFSET 1",
           "SELECT Count(*) AS CountResultField FROM t WHERE n + 1 > 0",
           "SELECT name, CASE WHEN n > 0 THEN 'plus' ELSE 'minus' END FROM t WHERE r IS NOT NULL "
           "AND n <> 0",
           "SELECT * FROM t WHERE name NOT IN (SELECT name FROM t ORDER BY name LIMIT 1) LIMIT 5",
       }) {
    const ParameterisedStatement p = parameterise(statement);
    EXPECT_FALSE(p.values.empty()) << statement;
    const Answer literal = run(db, statement, {});
    const Answer bound = run(db, p.text, p.values);
    EXPECT_EQ(literal.code, SQLITE_DONE) << statement;
    EXPECT_EQ(bound.code, literal.code) << p.text;
    EXPECT_EQ(bound.names, literal.names) << p.text;
    EXPECT_EQ(bound.cells, literal.cells) << p.text;
  }
  sqlite3_close(db);
}

}  // namespace
}  // namespace varnock::client::dialect
