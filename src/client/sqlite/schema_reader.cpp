// SPDX-License-Identifier: MIT
#include "client/sqlite/schema_reader.h"

#include <mutex>
#include <unordered_map>

#include "client/client.h"
#include "client/dialect/database_dialect.h"
#include "client/sqlite/sqlite_errors.h"
#include "client/sqlite/sqlite_handles.h"

namespace varnock::client::sqlite {

namespace {

std::string textOf(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return text == nullptr ? std::string() : std::string(text);
}

}  // namespace

RegisterSchema readRegisterSchema(sqlite3* db) {
  // The same query that reads the schema of an SQLite register through ODBC.
  const std::string_view columns = dialect::dialectForDatabase("SQLite")->schemaQuery;
  sqlite3_stmt* raw = nullptr;
  const int prepared =
      sqlite3_prepare_v2(db, columns.data(), static_cast<int>(columns.size()), &raw, nullptr);
  const StatementHandle statement(raw);
  if (prepared != SQLITE_OK) fail(kCannotOpen, sqlite3_errmsg(db));
  RegisterSchema schema;
  int stepped = SQLITE_ROW;
  while ((stepped = sqlite3_step(statement.get())) == SQLITE_ROW) {
    schema.addColumn(textOf(statement.get(), 0), textOf(statement.get(), 1),
                     textOf(statement.get(), 2));
  }
  if (stepped != SQLITE_DONE) fail(kCannotOpen, sqlite3_errmsg(db));
  return schema;
}

long long schemaVersion(sqlite3* db) {
  sqlite3_stmt* raw = nullptr;
  if (sqlite3_prepare_v2(db, "PRAGMA schema_version", -1, &raw, nullptr) != SQLITE_OK) {
    fail(kCannotOpen, sqlite3_errmsg(db));
  }
  const StatementHandle statement(raw);
  if (sqlite3_step(statement.get()) != SQLITE_ROW) fail(kCannotOpen, sqlite3_errmsg(db));
  return sqlite3_column_int64(statement.get(), 0);
}

std::shared_ptr<const RegisterSchema> cachedRegisterSchema(sqlite3* db, const std::string& path,
                                                           long long version) {
  struct Entry {
    long long version;
    std::shared_ptr<const RegisterSchema> schema;
  };
  static std::mutex mutex;
  static std::unordered_map<std::string, Entry> byPath;
  {
    std::lock_guard lock(mutex);
    if (const auto it = byPath.find(path); it != byPath.end() && it->second.version == version) {
      return it->second.schema;
    }
  }
  auto schema = std::make_shared<const RegisterSchema>(readRegisterSchema(db));
  std::lock_guard lock(mutex);
  byPath[path] = Entry{version, schema};
  return schema;
}

}  // namespace varnock::client::sqlite
