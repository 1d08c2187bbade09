// SPDX-License-Identifier: MIT
// The PostgreSQL register: one transaction for psql or a provider to run.
#include <string>
#include <string_view>
#include <vector>

#include "register/ddl_parts.h"

namespace varnock::schema::parts {

namespace {

using catalogue::SqlType;

constexpr std::string_view kHeader =
    R"(-- Tolvane_Register on PostgreSQL: the tables, keys and relations that
-- Varnock's record objects expect, behaving as under SQL Server's default
-- collation. Run it in the register's own database, which must be encoded in
-- UTF8, as the role that is to own the register:
--   psql -v ON_ERROR_STOP=1 -d tolvane_register -f postgresql.sql
--   * table and column names are in lower case, the case PostgreSQL folds
--     unquoted names to, so that statements naming them in any case find
--     them (the provider's dialect folds [bracketed] names the same way);
--   * text columns are citext under ICU's root collation: compared, ordered,
--     matched by LIKE and kept unique without regard to case, beyond ASCII
--     too ('ZÜRICH' finds 'Zürich'); an nvarchar longer than its declared
--     length is refused, with SQL Server's message;
--   * dates are timestamps in whole minutes, as smalldatetime keeps them: the
--     triggers below round seconds (30 and over round up) and refuse a date
--     outside 1900-01-01 .. 2079-06-06 23:59 with SQL Server's message;
--   * bits are booleans, ints integers;
--   * the domains nvarchar, ntext and smalldatetime keep SQL Server's type
--     names in the catalogue, where the provider reads them.
-- Written by generate_schema from the table catalogue: change the catalogue
-- and run it again rather than edit this file.

BEGIN;

DO $$
BEGIN
  IF current_setting('server_encoding') <> 'UTF8' THEN
    RAISE EXCEPTION 'The register needs a database encoded in UTF8, not %.',
      current_setting('server_encoding');
  END IF;
END
$$;

-- Trusted since PostgreSQL 13: the database's owner may create it.
CREATE EXTENSION IF NOT EXISTS citext;

CREATE DOMAIN nvarchar AS citext COLLATE "und-x-icu";
CREATE DOMAIN ntext AS citext COLLATE "und-x-icu";
CREATE DOMAIN smalldatetime AS timestamp;
)";

// The helpers the row triggers call, one per kind of column that needs work.
std::string helperFunctions() {
  std::string text = R"(
-- A date as smalldatetime keeps it, or SQL Server's refusal.
CREATE FUNCTION register_smalldatetime(value timestamp) RETURNS timestamp
LANGUAGE plpgsql IMMUTABLE AS $$
DECLARE
  minute timestamp := date_trunc('minute', value + interval '30 seconds');
BEGIN
  IF minute NOT BETWEEN '1900-01-01 00:00:00' AND '2079-06-06 23:59:00' THEN
    RAISE EXCEPTION USING ERRCODE = 'datetime_field_overflow',
      MESSAGE = ')";
  text += std::string(kDateOutOfRange);
  text += R"(';
  END IF;
  RETURN minute;
END
$$;

-- A text no longer than its column's length, or SQL Server's refusal.
CREATE FUNCTION register_nvarchar(value citext, length integer) RETURNS citext
LANGUAGE plpgsql IMMUTABLE AS $$
BEGIN
  IF char_length(value) > length THEN
    RAISE EXCEPTION USING ERRCODE = 'string_data_right_truncation',
      MESSAGE = ')";
  text += std::string(kTextTooLong);
  text += R"(';
  END IF;
  RETURN value;
END
$$;
)";
  return text;
}

// PostgreSQL folds unquoted names to lower case; the register's are ASCII.
std::string folded(std::string_view name) {
  std::string lower(name);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

// Quoted, as [User] and [Group] are reserved words here too.
std::string pgName(std::string_view name) {
  return doubleQuoted(folded(name));
}

std::string pgType(const Column& c) {
  switch (c.type) {
    case SqlType::Nvarchar:
      return "nvarchar";
    case SqlType::Ntext:
      return "ntext";
    case SqlType::Int:
      return "integer";
    case SqlType::Bit:
      return "boolean";
    case SqlType::Smalldatetime:
      return "smalldatetime";
  }
  return {};
}

std::string pgTable(const Table& t) {
  const std::string name = folded(t.name);
  std::vector<std::string> lines;
  for (const Column& c : t.columns)
    lines.push_back("  " + pgName(c.field) + " " + pgType(c) + (c.nullRefused ? " NOT NULL" : ""));
  if (const std::vector<const Column*> key = primaryKey(t); !key.empty()) {
    lines.push_back("  CONSTRAINT " + pgName("pk_" + name) + " PRIMARY KEY (" +
                    nameList(key, pgName) + ")");
  }
  for (const ForeignKey& fk : foreignKeys(t)) {
    const std::string parent = folded(fk.parent->name);
    lines.push_back("  CONSTRAINT " + pgName("fk_" + name + "_" + parent) + " FOREIGN KEY (" +
                    pgName(fk.column->field) + ")\n    REFERENCES " + pgName(parent) + " (" +
                    pgName(fk.column->field) + ")");
  }
  std::string text =
      t.wholeRowKey ? "-- A log has no key: two entries may be alike in every column.\n" : "";
  text += "CREATE TABLE " + pgName(name) + " (\n" + definitions(lines) + ");\n";
  for (const Column* c : indexedColumns(t)) {
    text += "CREATE INDEX " + pgName("ix_" + name + "_" + folded(c->field)) + " ON " +
            pgName(name) + " (" + pgName(c->field) + ");\n";
  }
  return text;
}

// The row trigger: every value a column keeps only in a checked form goes
// through its helper before the row is stored, so that keys and foreign
// keys see the stored form. Empty for a table with no such column.
std::string pgRowTrigger(const Table& t) {
  std::string body;
  for (const Column& c : t.columns) {
    const std::string fresh = "NEW." + pgName(c.field);
    if (c.type == SqlType::Smalldatetime) {
      body += "  " + fresh + " := register_smalldatetime(" + fresh + ");\n";
    } else if (c.type == SqlType::Nvarchar && c.length > 0) {
      body += "  " + fresh + " := register_nvarchar(" + fresh + ", " + std::to_string(c.length) +
              ");\n";
    }
  }
  if (body.empty()) return {};
  const std::string table = folded(t.name);
  const std::string function = pgName(table + "_row");
  std::string text = "CREATE FUNCTION " + function + "() RETURNS trigger\nLANGUAGE plpgsql AS $$\n";
  text += "BEGIN\n" + body + "  RETURN NEW;\nEND\n$$;\n";
  text += "CREATE TRIGGER " + pgName(table + "_row") + "\nBEFORE INSERT OR UPDATE ON " +
          pgName(table) + "\nFOR EACH ROW EXECUTE FUNCTION " + function + "();\n";
  return text;
}

}  // namespace

std::string postgresDdl() {
  std::string text(kHeader);
  text += helperFunctions();
  const std::vector<const Table*> order = creationOrder();
  for (const Table* t : order)
    text += "\n" + pgTable(*t);
  text += "\n-- Values to the form their column keeps, before keys are checked.\n";
  for (const Table* t : order) {
    if (const std::string trigger = pgRowTrigger(*t); !trigger.empty()) text += "\n" + trigger;
  }
  text += "\nCOMMIT;\n";
  return text;
}

}  // namespace varnock::schema::parts
