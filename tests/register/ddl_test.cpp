// SPDX-License-Identifier: MIT
// The register's DDL against the catalogue: a created register read back
// through SQLite's own pragmas, the SQL Server and PostgreSQL scripts read as
// text.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"
#include "client/dialect/refusal.h"
#include "client/sqlite/unicode_text.h"
#include "register/ddl.h"
#include "support/temp_register.h"

namespace varnock::schema {
namespace {

using catalogue::Column;
using catalogue::Relation;
using catalogue::RelationKind;
using catalogue::SqlType;
using catalogue::Table;
using Rows = std::vector<std::vector<std::string>>;

std::string declaredType(const Column& c) {
  const std::string name(catalogue::sqlTypeName(c.type));
  return c.length == 0 ? name : name + "(" + std::to_string(c.length) + ")";
}

std::vector<const Relation*> parentsOf(const Table& t) {
  std::vector<const Relation*> parents;
  for (const Relation& r : t.relations) {
    if (r.kind == RelationKind::Parent) parents.push_back(&r);
  }
  return parents;
}

// A foreign-key column has an index unless the primary key starts with it.
bool needsIndex(const Table& t, std::string_view field) {
  return t.wholeRowKey || t.columns[t.keyColumns[0]].field != field;
}

// The register file opened with SQLite alone and the register's collation,
// foreign keys off as in the shell.
class RawRegister {
 public:
  RawRegister() {
    EXPECT_EQ(sqlite3_open(register_.path().c_str(), &db_), SQLITE_OK);
    EXPECT_EQ(client::sqlite::registerUnicodeText(db_), SQLITE_OK);
    run("PRAGMA foreign_keys = OFF");
  }
  ~RawRegister() { sqlite3_close(db_); }

  // Every row as text; a failure is recorded in error().
  Rows run(const std::string& sql) {
    Rows rows;
    error_.clear();
    sqlite3_stmt* statement = nullptr;
    int step = sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr);
    while (step == SQLITE_OK || step == SQLITE_ROW) {
      step = sqlite3_step(statement);
      if (step != SQLITE_ROW) break;
      auto& row = rows.emplace_back();
      for (int i = 0; i < sqlite3_column_count(statement); ++i) {
        const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, i));
        row.emplace_back(text == nullptr ? "NULL" : text);
      }
    }
    if (step != SQLITE_DONE) error_ = sqlite3_errmsg(db_);
    sqlite3_finalize(statement);
    return rows;
  }
  const std::string& error() const { return error_; }

 private:
  testing::TempRegister register_;
  sqlite3* db_ = nullptr;
  std::string error_;
};

std::string quoted(std::string_view text) {
  return "'" + std::string(text) + "'";
}

TEST(RegisterDdl, TablesHoldTheCataloguesColumnsAndKeys) {
  RawRegister reg;
  EXPECT_EQ(reg.run("SELECT count(*) FROM sqlite_master WHERE type = 'table'"),
            Rows{{std::to_string(catalogue::tables().size())}});
  for (const Table& t : catalogue::tables()) {
    std::vector<std::string> keyPosition(t.columns.size(), "0");
    for (std::size_t k = 0; k < t.keyColumns.size() && !t.wholeRowKey; ++k)
      keyPosition[t.keyColumns[k]] = std::to_string(k + 1);
    Rows expected;
    for (std::size_t i = 0; i < t.columns.size(); ++i) {
      const Column& c = t.columns[i];
      expected.push_back(
          {std::string(c.field), declaredType(c), c.nullRefused ? "1" : "0", keyPosition[i]});
    }
    // SQLite spells some declared types its own way (INT for int).
    EXPECT_EQ(reg.run("SELECT name, lower(type), \"notnull\", pk FROM pragma_table_info(" +
                      quoted(t.name) + ") ORDER BY cid"),
              expected)
        << t.name;
  }
}

// Every index over a text column, keys included, is ordered by the
// register's collation; other columns keep SQLite's BINARY.
TEST(RegisterDdl, IndexesOverTextAreInTheRegistersCollation) {
  RawRegister reg;
  std::size_t textColumns = 0;
  for (const Table& t : catalogue::tables()) {
    for (const auto& row :
         reg.run("SELECT c.name, c.coll FROM pragma_index_list(" + quoted(t.name) +
                 ") AS i, pragma_index_xinfo(i.name) AS c WHERE c.key = 1")) {
      const auto column = std::find_if(t.columns.begin(), t.columns.end(),
                                       [&](const Column& c) { return c.field == row[0]; });
      ASSERT_NE(column, t.columns.end()) << t.name << "." << row[0];
      const bool text = column->type == SqlType::Nvarchar || column->type == SqlType::Ntext;
      textColumns += text ? 1 : 0;
      EXPECT_EQ(row[1], text ? client::sqlite::kCollationName : "BINARY")
          << t.name << "." << row[0];
    }
  }
  EXPECT_GE(textColumns, 8u);
  EXPECT_EQ(reg.error(), "");
}

TEST(RegisterDdl, ForeignKeysAreTheParentRelationsWithAnIndexWhereTheKeyGivesNone) {
  RawRegister reg;
  std::map<std::string, std::string> indexes, expectedIndexes;  // name -> table(column)
  for (const Table& t : catalogue::tables()) {
    const std::string table(t.name);
    Rows expected;
    for (const Relation* r : parentsOf(t)) {
      const std::string field(r->joinField);
      expected.push_back({std::string(r->other), field, field});
      if (needsIndex(t, field)) expectedIndexes[table + " by " + field] = table + "(" + field + ")";
    }
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(reg.run("SELECT \"table\", \"from\", \"to\" FROM pragma_foreign_key_list(" +
                      quoted(t.name) + ") ORDER BY 1, 2"),
              expected)
        << t.name;
    for (const auto& index :
         reg.run("SELECT i.name, group_concat(c.name) FROM pragma_index_list(" + quoted(t.name) +
                 ") AS i, pragma_index_info(i.name) AS c "
                 "WHERE i.origin = 'c' GROUP BY i.name"))
      indexes[index[0]] = table + "(" + index[1] + ")";
  }
  EXPECT_EQ(indexes, expectedIndexes);
  EXPECT_EQ(indexes.size(), 2u);
  EXPECT_TRUE(indexes.contains("GroupMember by UserName"));
  EXPECT_TRUE(indexes.contains("ZoneAddress by UserName"));
  // Every foreign key names a parent key SQLite can enforce it against.
  EXPECT_EQ(reg.run("PRAGMA foreign_key_check"), Rows{});
  EXPECT_EQ(reg.error(), "");
}

// Rows written with plain SQL get their dates in the stored form, or are
// refused with the provider's own messages, on insert and on update alike.
TEST(RegisterDdl, EveryDateColumnIsStoredAsTheProviderStoresDates) {
  RawRegister reg;
  for (const Table& t : catalogue::tables()) {
    std::vector<std::string> dates;
    for (const Column& c : t.columns) {
      if (c.type == SqlType::Smalldatetime) dates.emplace_back(c.field);
    }
    if (dates.empty()) continue;
    const auto insertWithDates = [&](std::string_view date) {
      std::string values;
      for (const Column& c : t.columns) {
        values += values.empty() ? "" : ", ";
        values += c.type == SqlType::Smalldatetime ? quoted(date) : "1";
      }
      reg.run("INSERT INTO \"" + std::string(t.name) + "\" VALUES (" + values + ")");
    };
    insertWithDates("someday");
    EXPECT_EQ(reg.error(), client::dialect::kDateConversionText) << t.name;
    insertWithDates("2000-05-04T13:45:40");
    ASSERT_EQ(reg.error(), "") << t.name;
    for (const std::string& date : dates) {
      const std::string column = "\"" + date + "\"";
      const std::string table = "\"" + std::string(t.name) + "\"";
      const std::string where = std::string(t.name) + "." + date;
      EXPECT_EQ(reg.run("SELECT " + column + " FROM " + table), Rows{{"2000-05-04 13:46:00"}})
          << where;
      reg.run("UPDATE " + table + " SET " + column + " = '2001-02-03 04:05:29'");
      EXPECT_EQ(reg.run("SELECT " + column + " FROM " + table), Rows{{"2001-02-03 04:05:00"}})
          << where;
      reg.run("UPDATE " + table + " SET " + column + " = 'someday'");
      EXPECT_EQ(reg.error(), client::dialect::kDateConversionText) << where;
      reg.run("UPDATE " + table + " SET " + column + " = '1899-12-31 23:59:00'");
      EXPECT_EQ(reg.error(), client::dialect::kDateOutOfRangeText) << where;
    }
  }
}

std::size_t occurrences(std::string_view text, std::string_view part) {
  std::size_t count = 0;
  for (std::size_t at = text.find(part); at != std::string_view::npos; at = text.find(part, at + 1))
    ++count;
  return count;
}

// The script with every run of blanks and line ends made one blank, so that
// what it declares can be found whatever its layout.
std::string sqlServerScript() {
  std::string flat;
  for (const char c : registerDdl(Dialect::SqlServer)) {
    const bool blank = c == ' ' || c == '\n';
    if (!blank || (!flat.empty() && flat.back() != ' ')) flat.push_back(blank ? ' ' : c);
  }
  return flat;
}

TEST(RegisterDdl, SqlServerScriptDeclaresEveryTableWithItsColumnsAndConstraints) {
  const std::string script = sqlServerScript();
  std::size_t indexCount = 0;
  for (const Table& t : catalogue::tables()) {
    const std::string name(t.name);
    const std::string create = "CREATE TABLE [dbo].[" + name + "] (";
    ASSERT_EQ(occurrences(script, create), 1u) << name;
    const std::size_t start = script.find(create);
    const std::string body = script.substr(start, script.find(");", start) - start);
    std::size_t previous = 0;
    for (const Column& c : t.columns) {
      const std::string column = "[" + std::string(c.field) + "] " + declaredType(c) +
                                 (c.nullRefused ? " NOT NULL" : " NULL");
      const std::size_t at = body.find(column);
      EXPECT_TRUE(at != std::string::npos && at >= previous) << name << ": " << column;
      if (at != std::string::npos) previous = at;
    }
    std::string key;
    for (const std::uint8_t k : t.keyColumns)
      key += (key.empty() ? "[" : ", [") + std::string(t.columns[k].field) + "]";
    if (t.wholeRowKey)
      EXPECT_EQ(occurrences(body, "PRIMARY KEY"), 0u) << name;
    else
      EXPECT_EQ(occurrences(body, "CONSTRAINT [PK_" + name + "] PRIMARY KEY (" + key + ")"), 1u)
          << name;
    EXPECT_EQ(occurrences(body, "FOREIGN KEY"), parentsOf(t).size()) << name;
    for (const Relation* r : parentsOf(t)) {
      const std::string parent(r->other), field(r->joinField);
      EXPECT_EQ(
          occurrences(body, "CONSTRAINT [FK_" + name + "_" + parent + "] FOREIGN KEY ([" + field +
                                "]) REFERENCES [dbo].[" + parent + "] ([" + field + "])"),
          1u)
          << name;
      EXPECT_LT(script.find("CREATE TABLE [dbo].[" + parent + "] ("), start) << name;
      if (!needsIndex(t, field)) continue;
      ++indexCount;
      EXPECT_EQ(occurrences(script, "CREATE INDEX [IX_" + name + "_" + field + "] ON [dbo].[" +
                                        name + "] ([" + field + "]);"),
                1u)
          << name;
    }
  }
  EXPECT_EQ(occurrences(script, "CREATE INDEX"), indexCount);
}

std::string folded(std::string_view name) {
  std::string lower(name);
  for (char& c : lower)
    c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
  return "\"" + lower + "\"";
}

std::string postgresType(const Column& c) {
  switch (c.type) {
    case SqlType::Int:
      return "integer";
    case SqlType::Bit:
      return "boolean";
    default:
      return std::string(catalogue::sqlTypeName(c.type));
  }
}

// The PostgreSQL script as text; tests/client/postgres_register_test.cpp runs
// it on a server.
TEST(RegisterDdl, PostgresScriptDeclaresEveryTableInLowerCaseWithItsKeysAndTriggers) {
  const std::string script = registerDdl(Dialect::Postgres);
  EXPECT_EQ(script.find("BEGIN;"), script.find("\nBEGIN;\n") + 1);
  EXPECT_EQ(script.rfind("COMMIT;\n"), script.size() - 8);
  std::size_t lengthChecks = 0, dateChecks = 0;
  for (const Table& t : catalogue::tables()) {
    const std::string name = folded(t.name);
    const std::string create = "CREATE TABLE " + name + " (\n";
    ASSERT_EQ(occurrences(script, create), 1u) << name;
    const std::size_t start = script.find(create);
    const std::string body = script.substr(start, script.find("\n);", start) - start);
    const std::string function = "CREATE FUNCTION " + folded(std::string(t.name) + "_row") + "()";
    const std::size_t triggerStart = script.find(function);
    const std::string trigger =
        triggerStart == std::string::npos
            ? ""
            : script.substr(triggerStart, script.find("$$;", triggerStart) - triggerStart);
    std::size_t previous = 0;
    for (const Column& c : t.columns) {
      const std::string column = "  " + folded(c.field) + " " + postgresType(c) +
                                 (c.nullRefused ? " NOT NULL" : "") + (",\n");
      const std::size_t at = (body + ",\n").find(column);
      EXPECT_TRUE(at != std::string::npos && at >= previous) << name << ": " << column;
      if (at != std::string::npos) previous = at;
      const std::string fresh = "NEW." + folded(c.field);
      if (c.type == SqlType::Smalldatetime) {
        ++dateChecks;
        EXPECT_EQ(occurrences(trigger, fresh + " := register_smalldatetime(" + fresh + ");"), 1u)
            << name << "." << c.field;
      } else if (c.type == SqlType::Nvarchar) {
        ++lengthChecks;
        EXPECT_EQ(occurrences(trigger, fresh + " := register_nvarchar(" + fresh + ", " +
                                           std::to_string(c.length) + ");"),
                  1u)
            << name << "." << c.field;
      }
    }
    std::string key;
    for (const std::uint8_t k : t.keyColumns)
      key += (key.empty() ? "" : ", ") + folded(t.columns[k].field);
    EXPECT_EQ(occurrences(body, "PRIMARY KEY"), t.wholeRowKey ? 0u : 1u) << name;
    if (!t.wholeRowKey) {
      EXPECT_EQ(occurrences(body, "CONSTRAINT " + folded("pk_" + std::string(t.name)) +
                                      " PRIMARY KEY (" + key + ")"),
                1u)
          << name;
    }
    EXPECT_EQ(occurrences(body, "FOREIGN KEY"), parentsOf(t).size()) << name;
    for (const Relation* r : parentsOf(t)) {
      EXPECT_EQ(occurrences(body, "FOREIGN KEY (" + folded(r->joinField) + ")\n    REFERENCES " +
                                      folded(r->other) + " (" + folded(r->joinField) + ")"),
                1u)
          << name;
      EXPECT_LT(script.find("CREATE TABLE " + folded(r->other) + " ("), start) << name;
    }
  }
  EXPECT_EQ(occurrences(script, ":= register_smalldatetime("), dateChecks);
  EXPECT_EQ(occurrences(script, ":= register_nvarchar("), lengthChecks);
  EXPECT_EQ(occurrences(script, "CREATE INDEX"), 2u);
}

}  // namespace
}  // namespace varnock::schema
