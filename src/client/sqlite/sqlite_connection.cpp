#include "client/sqlite/sqlite_connection.h"

#include <string>
#include <utility>

#include "client/dialect/refusal.h"
#include "client/dialect/sqlite_dialect.h"
#include "client/sqlite/large_literals.h"
#include "client/sqlite/schema_reader.h"
#include "client/sqlite/sqlite_errors.h"
#include "client/sqlite/sqlite_recordset.h"
#include "client/sqlite/unicode_text.h"

namespace varnock::client::sqlite {

namespace {

// A statement that meets a register locked by another writer waits this long
// before it gives up, as SQL Server's clients wait for a lock.
constexpr int kBusyTimeoutMilliseconds = 30000;

// Functions a caller's condition could use to read memory addresses or reach
// files; nothing the register's statements need. And the pragma that would
// put SQLite's ASCII-only like() back in place of the register's.
int refuseUnsafeFunctions(void*, int action, const char* name, const char* function, const char*,
                          const char*) {
  if (action == SQLITE_PRAGMA && name != nullptr) {
    return sqlite3_stricmp(name, "case_sensitive_like") == 0 ? SQLITE_DENY : SQLITE_OK;
  }
  if (action != SQLITE_FUNCTION || function == nullptr) return SQLITE_OK;
  for (const char* refused : {"fts3_tokenizer", "load_extension", "fts5_api_from_db"}) {
    if (sqlite3_stricmp(function, refused) == 0) return SQLITE_DENY;
  }
  return SQLITE_OK;
}

void configure(sqlite3* db) {
  sqlite3_busy_timeout(db, kBusyTimeoutMilliseconds);
  // Conditions come from callers: SQLite's defensive settings, a schema that
  // is not trusted to call functions with side effects, no extensions.
  sqlite3_db_config(db, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_FTS3_TOKENIZER, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
  sqlite3_set_authorizer(db, refuseUnsafeFunctions, nullptr);
  // The register's text columns compare in this collation; its indexes are
  // ordered by it. Registered through the C API: extensions stay off.
  if (registerUnicodeText(db) != SQLITE_OK) fail(kCannotOpen, sqlite3_errmsg(db));
  // "text" names a column, as SQL Server reads it; it is never a literal.
  sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  if (sqlite3_exec(db, "PRAGMA foreign_keys = ON", nullptr, nullptr, nullptr) != SQLITE_OK) {
    fail(kCannotOpen, sqlite3_errmsg(db));
  }
  // A process that may only read the register cannot create the WAL's
  // companion files, and cannot read a WAL register without them: writers
  // keep them in place when they close.
  // The log itself is emptied whenever it has been carried into the register,
  // so that it never keeps the space of a large write.
  if (sqlite3_db_readonly(db, "main") == 0) {
    int persist = 1;
    sqlite3_file_control(db, "main", SQLITE_FCNTL_PERSIST_WAL, &persist);
    sqlite3_exec(db, "PRAGMA journal_size_limit = 0", nullptr, nullptr, nullptr);
  }
}

// The Data Source is a path, never a URI: SQLite (built to read URIs) would
// take "file:x.db?immutable=1" as options. A relative path written that way
// names a file in the working folder, so it is opened as "./file:...".
std::string asPath(const std::string& dataSource) {
  return dataSource.rfind("file:", 0) == 0 ? "./" + dataSource : dataSource;
}

// SQLite's own message; for a register this process may only read, with the
// reason, since SQLite's words do not say which file or why.
std::string failureText(sqlite3* db) {
  std::string text = sqlite3_errmsg(db);
  if ((sqlite3_extended_errcode(db) & 0xff) == SQLITE_READONLY) {
    text += " (the register is read-only for this process: it may read it, not write it)";
  }
  return text;
}

// A statement without result columns runs to its end within execute(), while
// the literals' texts are there: SQLite reads them where they are. Rows are
// read later, so a query gets copies.
void bindLargeLiterals(sqlite3_stmt* statement, const LargeLiterals& large) {
  const auto lifetime = sqlite3_column_count(statement) == 0 ? SQLITE_STATIC : SQLITE_TRANSIENT;
  int position = 0;
  for (const std::string_view value : large.values()) {
    if (sqlite3_bind_text64(statement, ++position, value.data(), value.size(), lifetime,
                            SQLITE_UTF8) != SQLITE_OK) {
      fail(kCommandFailed, sqlite3_errmsg(sqlite3_db_handle(statement)));
    }
  }
}

}  // namespace

DatabaseHandle openDatabase(const std::string& dataSource) {
  const std::string path = asPath(dataSource);
  sqlite3* raw = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
  DatabaseHandle db(raw);
  if (opened != SQLITE_OK) {
    fail(kCannotOpen, std::string(db ? sqlite3_errmsg(db.get()) : sqlite3_errstr(opened)) +
                          " (Data Source=" + dataSource + ")");
  }
  configure(db.get());
  return db;
}

SqliteConnection::SqliteConnection(const std::string& path) {
  DatabaseHandle db = openDatabase(path);
  schema_ = cachedRegisterSchema(db.get(), path);
  db_ = std::move(db);
}

std::unique_ptr<Recordset> SqliteConnection::execute(std::string_view statement) {
  if (!db_) fail(kConnectionClosed, kConnectionClosedText);
  const LargeLiterals large(statement);
  std::string sql;
  try {
    sql = dialect::toSqliteDialect(large.any() ? std::string_view(large.statement()) : statement,
                                   *schema_);
  } catch (const dialect::StatementRefused& refused) {
    fail(kCommandFailed, refused.what());
  }
  sqlite3_stmt* raw = nullptr;
  const char* tail = nullptr;
  const int prepared =
      sqlite3_prepare_v2(db_.get(), sql.data(), static_cast<int>(sql.size()), &raw, &tail);
  StatementHandle compiled(raw);
  if (prepared != SQLITE_OK) fail(kCommandFailed, failureText(db_.get()));
  if (!dialect::isBlank(
          std::string_view(tail, static_cast<std::size_t>(sql.data() + sql.size() - tail)))) {
    fail(kCommandFailed, kSeveralStatementsText);
  }
  if (!compiled) fail(kCommandFailed, kNoStatementText);
  bindLargeLiterals(compiled.get(), large);
  const int stepped = sqlite3_step(compiled.get());
  if (stepped != SQLITE_ROW && stepped != SQLITE_DONE) fail(kCommandFailed, failureText(db_.get()));
  return std::make_unique<SqliteRecordset>(db_, std::move(compiled), stepped == SQLITE_ROW);
}

void SqliteConnection::close() noexcept {
  db_.reset();
}

}  // namespace varnock::client::sqlite
