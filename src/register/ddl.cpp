// SPDX-License-Identifier: MIT
#include "register/ddl.h"

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"
#include "register/ddl_parts.h"

namespace varnock::schema {

namespace {

using catalogue::Column;
using catalogue::SqlType;
using catalogue::Table;
using namespace parts;

// SQLite: one transaction, run by createRegister on a new file.

constexpr std::string_view kSqliteHeader =
    R"(-- Tolvane_Register as an SQLite database: the register that Varnock's record
-- objects read and write through the SQLite provider. It stays an ordinary
-- SQLite database, usable from the sqlite3 shell with plain SQL:
--   * column names and their letter case are those of the SQL Server register;
--   * declared types keep SQL Server's names (nvarchar, ntext, int, bit,
--     smalldatetime), so readers can tell bits and dates from numbers and text;
--   * text compares without regard to case, beyond ASCII as under SQL Server's
--     default collation ('ZÜRICH' = 'Zürich'; accents count: 'é' <> 'e'), in
--     =, IN, ORDER BY, keys and LIKE: text columns declare COLLATE
--     VARNOCK_NOCASE, Varnock's own collation, which Varnock's build also
--     makes as an SQLite extension, varnock_nocase.so, with a LIKE to match.
--     Load it before other statements: in the sqlite3 shell
--       .load /path/to/varnock_nocase
--     and with SQLite's ODBC driver, LoadExt=/path/to/varnock_nocase.so in the
--     connection string. Without it a program still reads rows that no text
--     condition or order picks, but SQLite refuses ("no such collation
--     sequence: VARNOCK_NOCASE") every statement that compares or sorts text,
--     or adds, removes or re-keys rows of a table with a text key, rather than
--     let it write through indexes in an order that is not the register's; its
--     LIKE then folds ASCII only;
--   * dates are stored as 'YYYY-MM-DD HH:MM:00', whole minutes as smalldatetime
--     keeps them; the triggers below bring any date SQLite's date functions
--     read to that form, so rows written from the shell match the others;
--   * bits are 1 and 0;
--   * foreign keys hold only on connections that turn them on
--     (PRAGMA foreign_keys = ON), as the provider does on every connection.
-- Written by generate_schema from the table catalogue: change the catalogue
-- and run it again rather than edit this file.

-- Readers do not wait for writers, and several processes share the register.
PRAGMA journal_mode = WAL;

BEGIN;
)";

constexpr std::string_view kLogComment =
    "-- A log has no key: two entries may be alike in every column.\n";

constexpr std::string_view kDateTriggersComment =
    R"(-- Dates to the stored form, for every row however it was written. A value
-- already in that form passes untouched; any other that SQLite's date
-- functions read ('2000-05-04', '2000-05-04T13:45:29') is rewritten, its
-- seconds rounded to the minute as smalldatetime rounds them (30 seconds and
-- over round up); one they cannot read is refused, and so is a date outside
-- smalldatetime's range, with SQL Server's messages.
)";

constexpr std::string_view kSmalldatetimeRange =
    "BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00'";

// The stored form of a date: whole minutes, 30 seconds and over rounded up;
// NULL when SQLite's date functions cannot read the value.
std::string storedForm(std::string_view value) {
  return "strftime('%Y-%m-%d %H:%M:00', " + std::string(value) + ", '+30 seconds')";
}

std::string sqliteColumn(const Table& t, const Column& c) {
  std::string line = "  " + doubleQuoted(c.field) + " " + declaredType(c);
  if (isText(c)) line += " COLLATE VARNOCK_NOCASE";
  if (c.nullRefused) line += " NOT NULL";
  if (const Table* parent = parentThrough(t, c))
    line += " REFERENCES " + doubleQuoted(parent->name) + " (" + doubleQuoted(c.field) + ")";
  return line;
}

std::string sqliteTable(const Table& t) {
  std::string text = t.wholeRowKey ? std::string(kLogComment) : std::string();
  std::vector<std::string> lines;
  for (const Column& c : t.columns)
    lines.push_back(sqliteColumn(t, c));
  if (const std::vector<const Column*> key = primaryKey(t); !key.empty())
    lines.push_back("  PRIMARY KEY (" + nameList(key, doubleQuoted) + ")");
  text += "CREATE TABLE " + doubleQuoted(t.name) + " (\n" + definitions(lines) + ");\n";
  for (const Column* c : indexedColumns(t)) {
    const std::string index = std::string(t.name) + " by " + std::string(c->field);
    text += "CREATE INDEX " + doubleQuoted(index) + " ON " + doubleQuoted(t.name) + " (" +
            doubleQuoted(c->field) + ");\n";
  }
  return text;
}

constexpr std::string_view kIntRange = "BETWEEN -2147483648 AND 2147483647";

constexpr std::string_view kIntTriggersComment =
    R"(-- Whole numbers in int columns, as SQL Server keeps them: a number with a
-- fraction loses it (towards zero), and one outside int's range is refused
-- with SQL Server's message.
)";

// An AFTER INSERT or AFTER UPDATE OF trigger on one column (`event` is
// "insert" or "update"), named after what it keeps: `when` and `body` are
// written with NEW.<column> as `fresh`, and `column` as the stored column.
std::string sqliteColumnTrigger(const Table& t, const Column& c, std::string_view event,
                                std::string_view keeps,
                                std::string (*when)(const std::string& fresh),
                                std::string (*body)(const std::string& fresh,
                                                    const std::string& column)) {
  const std::string table = doubleQuoted(t.name);
  const std::string column = doubleQuoted(c.field);
  const std::string fresh = "NEW." + column;
  const std::string name = std::string(t.name) + "." + std::string(c.field) + " stored as " +
                           std::string(keeps) + " after " + std::string(event);
  std::string text = "CREATE TRIGGER " + doubleQuoted(name) + "\n";
  text += event == "insert" ? "AFTER INSERT ON " + table + "\n"
                            : "AFTER UPDATE OF " + column + " ON " + table + "\n";
  text += "WHEN " + when(fresh) + "\n";
  text += "BEGIN\n" + body(fresh, column);
  text += "  UPDATE " + table + "\n";
  text += "  SET " + column + " = ";
  text += c.type == SqlType::Smalldatetime ? storedForm(column) : "CAST(" + column + " AS INTEGER)";
  text += "\n  WHERE rowid = NEW.rowid;\n";
  text += "END;\n";
  return text;
}

std::string dateNeedsWork(const std::string& fresh) {
  return fresh + "\n       IS NOT " + storedForm(fresh) + "\n  OR " + fresh + " NOT " +
         std::string(kSmalldatetimeRange);
}

std::string dateChecks(const std::string& fresh, const std::string&) {
  std::string text = "  SELECT RAISE(ABORT, '" + std::string(kUnreadableDate) + "')\n";
  text += "  WHERE " + storedForm(fresh) + " IS NULL;\n";
  text += "  SELECT RAISE(ABORT,\n    '" + std::string(kDateOutOfRange) + "')\n";
  text += "  WHERE " + storedForm(fresh) + "\n";
  text += "    NOT " + std::string(kSmalldatetimeRange) + ";\n";
  return text;
}

std::string intNeedsWork(const std::string& fresh) {
  return "typeof(" + fresh + ") = 'real'\n  OR " + fresh + " NOT " + std::string(kIntRange);
}

std::string intChecks(const std::string& fresh, const std::string&) {
  return "  SELECT RAISE(ABORT, '" + std::string(kIntOverflow) + "')\n  WHERE " + fresh + " NOT " +
         std::string(kIntRange) + ";\n";
}

// The triggers that keep the columns of one SQL type in their stored form.
struct ColumnTriggers {
  SqlType type;
  std::string_view comment;
  std::string_view keeps;
  std::string (*when)(const std::string& fresh);
  std::string (*body)(const std::string& fresh, const std::string& column);
};

std::string sqliteDdl() {
  const std::vector<const Table*> order = creationOrder();
  std::string text(kSqliteHeader);
  for (const Table* t : order)
    text += "\n" + sqliteTable(*t);
  for (const ColumnTriggers& kind :
       {ColumnTriggers{SqlType::Smalldatetime, kDateTriggersComment, "a date", dateNeedsWork,
                       dateChecks},
        ColumnTriggers{SqlType::Int, kIntTriggersComment, "an int", intNeedsWork, intChecks}}) {
    text += "\n";
    text += kind.comment;
    for (const Table* t : order) {
      for (const Column& c : t->columns) {
        if (c.type != kind.type) continue;
        for (const char* event : {"insert", "update"})
          text += "\n" + sqliteColumnTrigger(*t, c, event, kind.keeps, kind.when, kind.body);
      }
    }
  }
  text += "\nCOMMIT;\n";
  return text;
}

// SQL Server: batches for sqlcmd, constraints named so that errors name them.

constexpr std::string_view kSqlServerHeader =
    R"(-- Tolvane_Register on SQL Server: the tables, keys and relations that
-- Varnock's record objects expect. Run it in the register's own database
-- (created beforehand, with the server's default case-insensitive collation);
-- the batches are separated by GO for sqlcmd and Management Studio.
-- Written by generate_schema from the table catalogue: change the catalogue
-- and run it again rather than edit this file.
)";

std::string owned(std::string_view name) {
  return "[dbo]." + bracketed(name);
}

std::string sqlServerTable(const Table& t) {
  std::vector<std::string> lines;
  for (const Column& c : t.columns) {
    lines.push_back("  " + bracketed(c.field) + " " + declaredType(c) +
                    (c.nullRefused ? " NOT NULL" : " NULL"));
  }
  const std::string name(t.name);
  if (const std::vector<const Column*> key = primaryKey(t); !key.empty()) {
    lines.push_back("  CONSTRAINT " + bracketed("PK_" + name) + " PRIMARY KEY (" +
                    nameList(key, bracketed) + ")");
  }
  for (const ForeignKey& fk : foreignKeys(t)) {
    const std::string parent(fk.parent->name);
    lines.push_back("  CONSTRAINT " + bracketed("FK_" + name + "_" + parent) + " FOREIGN KEY (" +
                    bracketed(fk.column->field) + ")\n    REFERENCES " + owned(parent) + " (" +
                    bracketed(fk.column->field) + ")");
  }
  return "CREATE TABLE " + owned(t.name) + " (\n" + definitions(lines) + ");\nGO\n";
}

std::string sqlServerDdl() {
  const std::vector<const Table*> order = creationOrder();
  std::string text(kSqlServerHeader);
  std::string logs;
  for (const Table* t : order) {
    if (t->wholeRowKey) logs += (logs.empty() ? "" : ", ") + std::string(t->name);
  }
  if (!logs.empty())
    text +=
        "-- The logs (" + logs + ") have no key:\n-- two entries may be alike in every column.\n";
  for (const Table* t : order)
    text += "\n" + sqlServerTable(*t);
  std::string indexes;
  for (const Table* t : order) {
    for (const Column* c : indexedColumns(*t)) {
      const std::string index = "IX_" + std::string(t->name) + "_" + std::string(c->field);
      indexes += "CREATE INDEX " + bracketed(index) + " ON " + owned(t->name) + " (" +
                 bracketed(c->field) + ");\n";
    }
  }
  if (!indexes.empty()) text += "\n" + indexes + "GO\n";
  return text;
}

}  // namespace

std::string registerDdl(Dialect dialect) {
  switch (dialect) {
    case Dialect::Sqlite:
      return sqliteDdl();
    case Dialect::SqlServer:
      return sqlServerDdl();
    case Dialect::Postgres:
      return postgresDdl();
  }
  return {};
}

}  // namespace varnock::schema
