#include "client/sqlite/sqlite_connection.h"

#include <string>
#include <utility>

#include "client/sqlite/dialect.h"
#include "client/sqlite/sqlite_errors.h"
#include "client/sqlite/sqlite_recordset.h"

namespace varnock::client::sqlite {

namespace {

// A statement that meets a register locked by another writer waits this long
// before it gives up, as SQL Server's clients wait for a lock.
constexpr int kBusyTimeoutMilliseconds = 30000;

void configure(sqlite3* db) {
  sqlite3_busy_timeout(db, kBusyTimeoutMilliseconds);
  // "text" names a column, as SQL Server reads it; it is never a literal.
  sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  if (sqlite3_exec(db, "PRAGMA foreign_keys = ON", nullptr, nullptr, nullptr) != SQLITE_OK) {
    fail(kCannotOpen, sqlite3_errmsg(db));
  }
}

}  // namespace

DatabaseHandle openDatabase(const std::string& path) {
  sqlite3* raw = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
  DatabaseHandle db(raw);
  if (opened != SQLITE_OK) {
    fail(kCannotOpen, std::string(db ? sqlite3_errmsg(db.get()) : sqlite3_errstr(opened)) +
                          " (Data Source=" + path + ")");
  }
  configure(db.get());
  return db;
}

SqliteConnection::SqliteConnection(const std::string& path) {
  DatabaseHandle db = openDatabase(path);
  schema_ = RegisterSchema::cached(db.get(), path);
  db_ = std::move(db);
}

std::unique_ptr<Recordset> SqliteConnection::execute(std::string_view statement) {
  if (!db_) fail(kConnectionClosed, kConnectionClosedText);
  const std::string sql = toSqliteDialect(statement, *schema_);
  sqlite3_stmt* raw = nullptr;
  const char* tail = nullptr;
  const int prepared =
      sqlite3_prepare_v2(db_.get(), sql.data(), static_cast<int>(sql.size()), &raw, &tail);
  StatementHandle compiled(raw);
  if (prepared != SQLITE_OK) fail(kCommandFailed, sqlite3_errmsg(db_.get()));
  if (!isBlank(std::string_view(tail, static_cast<std::size_t>(sql.data() + sql.size() - tail)))) {
    fail(kCommandFailed,
         "The command text holds more than one statement; the register runs one at a time.");
  }
  if (!compiled) fail(kCommandFailed, "The command text holds no statement.");
  const int stepped = sqlite3_step(compiled.get());
  if (stepped != SQLITE_ROW && stepped != SQLITE_DONE) {
    fail(kCommandFailed, sqlite3_errmsg(db_.get()));
  }
  return std::make_unique<SqliteRecordset>(db_, std::move(compiled), stepped == SQLITE_ROW);
}

void SqliteConnection::close() noexcept {
  db_.reset();
}

}  // namespace varnock::client::sqlite
