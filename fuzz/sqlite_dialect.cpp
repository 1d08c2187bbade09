// SPDX-License-Identifier: MIT
// Statements in SQL Server's dialect carried over to a register's database.
// The first byte of an input chooses the database ('0' is SQLite, '1'
// PostgreSQL; a later database takes the next digit), the rest is the
// statement. Tokenizing gives the text back unchanged; a translation either
// succeeds or refuses the statement as SQL Server would, and the database
// then accepts or refuses what it was given, never anything worse; with its
// literals taken out as parameters it means what it meant. There is
// no PostgreSQL server here: its translations are checked as text.
#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

#include "automation/text.h"
#include "catalogue/catalogue.h"
#include "client/client.h"
#include "client/dialect/parameterised_statement.h"
#include "client/dialect/postgres_dialect.h"
#include "client/dialect/refusal.h"
#include "client/dialect/register_schema.h"
#include "client/dialect/sql_tokens.h"
#include "client/dialect/sqlite_dialect.h"
#include "client/sqlite/schema_reader.h"
#include "client/sqlite/sqlite_connection.h"
#include "fuzz_support.h"
#include "varnock/automation_error.h"

namespace {

using varnock::fuzz::check;
namespace sqlite = varnock::client::sqlite;
namespace dialect = varnock::client::dialect;

// The scratch register, opened once as the provider opens it, and its schema.
struct SqliteRegister {
  sqlite::DatabaseHandle db;
  dialect::RegisterSchema schema;

  SqliteRegister()
      : db(sqlite::openDatabase(
            (varnock::fuzz::scratchRegister(), varnock::fuzz::scratchRegisterPath()))),
        schema(sqlite::readRegisterSchema(db.get())) {}
};

const SqliteRegister& sqliteRegister() {
  static const SqliteRegister opened;
  return opened;
}

void checkTokens(std::string_view statement) {
  const std::vector<dialect::Token> tokens = dialect::tokenize(statement);
  check(dialect::joinTokens(tokens) == statement, "joining the tokens gives the text back",
        statement);
  for (const dialect::Token& t : tokens) {
    if (t.kind == dialect::Token::Kind::String) static_cast<void>(dialect::stringValue(t));
    if (dialect::isName(t)) static_cast<void>(dialect::nameOf(t));
  }
  static_cast<void>(dialect::isBlank(statement));
}

void translateForSqlite(std::string_view statement) {
  checkTokens(statement);
  const SqliteRegister& reg = sqliteRegister();
  std::string translated;
  try {
    translated = dialect::toSqliteDialect(statement, reg.schema);
  } catch (const dialect::StatementRefused&) {
    return;  // refused as SQL Server refuses it
  }
  // Prepared only: the register is not changed by what is tried on it.
  // A statement SQLite reads to its end (it stops at a NUL, or after one
  // statement of several), or none.
  const auto prepare = [&](const std::string& sql) {
    sqlite3_stmt* prepared = nullptr;
    const char* tail = nullptr;
    sqlite3_prepare_v2(reg.db.get(), sql.data(), static_cast<int>(sql.size()), &prepared, &tail);
    sqlite::StatementHandle statement(prepared);
    if (tail != sql.data() + sql.size()) statement.reset();
    return statement;
  };
  const sqlite::StatementHandle literal = prepare(translated);
  // With its literals taken out as parameters, a statement that SQLite takes
  // both ways has the same result columns and does the same kind of thing.
  const dialect::ParameterisedStatement parameterised = dialect::parameterise(translated, 1);
  check(parameterised.values.empty() == (parameterised.text == translated),
        "a statement changes exactly when literals are taken out", translated);
  const sqlite::StatementHandle bound = prepare(parameterised.text);
  if (!literal || !bound) return;
  check(sqlite3_bind_parameter_count(bound.get()) >= static_cast<int>(parameterised.values.size()),
        "every value taken out has its parameter", parameterised.text);
  const int columns = sqlite3_column_count(literal.get());
  check(sqlite3_column_count(bound.get()) == columns, "the same number of result columns",
        parameterised.text);
  const auto name = [](sqlite3_stmt* s, int c) {
    const char* n = sqlite3_column_name(s, c);
    return std::string_view(n != nullptr ? n : "");
  };
  for (int c = 0; c < columns; ++c) {
    check(name(literal.get(), c) == name(bound.get(), c), "result columns keep their names",
          parameterised.text);
  }
  check(sqlite3_stmt_readonly(literal.get()) == sqlite3_stmt_readonly(bound.get()),
        "a reading statement stays a reading one", parameterised.text);
}

// The register as the PostgreSQL provider reads it: lower-case names, SQL
// Server's type names.
const dialect::RegisterSchema& postgresSchema() {
  static const dialect::RegisterSchema schema = [] {
    dialect::RegisterSchema s;
    for (const varnock::catalogue::Table& t : varnock::catalogue::tables()) {
      for (const varnock::catalogue::Column& c : t.columns)
        s.addColumn(varnock::lowerCase(t.name), varnock::lowerCase(c.field),
                    varnock::catalogue::sqlTypeName(c.type));
    }
    return s;
  }();
  return schema;
}

void translateForPostgres(std::string_view statement) {
  checkTokens(statement);
  std::string translated;
  try {
    translated = dialect::toPostgresDialect(statement, postgresSchema());
  } catch (const dialect::StatementRefused&) {
    return;  // refused as SQL Server refuses it, or for a NUL character
  }
  check(translated.find('\0') == std::string::npos, "no NUL reaches PostgreSQL", translated);
  // Every quoted name is quoted as PostgreSQL quotes names.
  for (const dialect::Token& t : dialect::tokenize(translated)) {
    check(t.kind != dialect::Token::Kind::QuotedName || t.text.front() == '"',
          "names are quoted in PostgreSQL's way", translated);
  }
}

struct Dialect {
  std::string_view name;
  void (*run)(std::string_view statement);
};

constexpr Dialect kDialects[] = {
    {"SQLite", translateForSqlite},
    {"PostgreSQL", translateForPostgres},
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0 || size > varnock::fuzz::kMaxInputSize) return 0;
  const Dialect& dialect = kDialects[data[0] % std::size(kDialects)];
  dialect.run(varnock::fuzz::textOf(data + 1, size - 1));
  return 0;
}
