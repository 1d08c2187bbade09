// SPDX-License-Identifier: MIT
#include "client/sqlite/sqlite_connection.h"

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <utility>

#include "client/dialect/refusal.h"
#include "client/dialect/sqlite_dialect.h"
#include "client/sqlite/large_literals.h"
#include "client/sqlite/schema_reader.h"
#include "client/sqlite/sqlite_errors.h"
#include "client/sqlite/sqlite_recordset.h"
#include "client/sqlite/unicode_text.h"
#include "varnock/automation_error.h"

namespace varnock::client::sqlite {

namespace {

// A statement that meets a register locked by another writer waits this long
// before it gives up, as SQL Server's clients wait for a lock.
constexpr int kBusyTimeoutMilliseconds = 30000;

// Sessions of this process whose read or write of a register file failed.
std::atomic<std::uint64_t> damagedSessions{0};

// Statements carried over and kept per session; past this many the kept ones
// are dropped, so a caller sending ever new texts does not grow the session.
constexpr std::size_t kKeptPlans = 256;

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

// A statement without result columns runs to its end within execute(), while
// the literals' texts are there: SQLite reads them where they are. Rows are
// read later, so a query gets copies.
// Returns the number of the last parameter bound.
int bindLargeLiterals(sqlite3_stmt* statement, const LargeLiterals& large) {
  const auto lifetime = sqlite3_column_count(statement) == 0 ? SQLITE_STATIC : SQLITE_TRANSIENT;
  int position = 0;
  for (const std::string_view value : large.values()) {
    if (sqlite3_bind_text64(statement, ++position, value.data(), value.size(), lifetime,
                            SQLITE_UTF8) != SQLITE_OK) {
      fail(kCommandFailed, sqlite3_errmsg(sqlite3_db_handle(statement)));
    }
  }
  return position;
}

}  // namespace

DatabaseHandle openDatabase(const std::string& dataSource) {
  const std::string path = asPath(dataSource);
  sqlite3* raw = nullptr;
  static std::once_flag configured;
  std::call_once(configured, [] {
    // SQLite counts every allocation under one process-wide lock unless told
    // not to, which makes threads calling on sessions of their own take
    // turns. Only possible before SQLite's first use in the process; where
    // the program has used it already, the setting stays as the program has it.
    sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  });
  // A session is used by one thread at a time: its own locks would guard
  // nothing.
  const int opened =
      sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  DatabaseHandle db(raw);
  if (opened != SQLITE_OK) {
    fail(kCannotOpen, std::string(db ? sqlite3_errmsg(db.get()) : sqlite3_errstr(opened)) +
                          " (Data Source=" + dataSource + ")");
  }
  configure(db.get());
  return db;
}

SqliteConnection::SqliteConnection(const std::string& path)
    : path_(path),
      identity_(platform::fileIdentity(asPath(path))),
      failuresSeen_(damagedSessions.load(std::memory_order_relaxed)) {
  DatabaseHandle db = openDatabase(path);
  schemaVersion_ = schemaVersion(db.get());
  schema_ = cachedRegisterSchema(db.get(), path, schemaVersion_);
  statements_ = std::make_shared<StatementCache>(SharedDatabase(std::move(db)));
}

SqliteConnection::Plan SqliteConnection::planOf(std::string_view statement, int firstNumber) const {
  Plan plan;
  try {
    plan.carriedOver = dialect::toSqliteDialect(statement, *schema_);
  } catch (const dialect::StatementRefused& refused) {
    fail(kCommandFailed, refused.what());
  }
  dialect::ParameterisedStatement parameterised =
      dialect::parameterise(plan.carriedOver, firstNumber);
  plan.prepared = std::move(parameterised.text);
  plan.values = std::move(parameterised.values);
  return plan;
}

// A value SQLite will not take as a parameter where the statement puts it
// (a name written as a literal, more values than it binds) leaves the
// statement as carried over, literals in place, from then on.
PreparedStatement SqliteConnection::prepare(Plan& plan) {
  if (plan.values.empty()) return statements_->take(plan.prepared);
  try {
    return statements_->take(plan.prepared);
  } catch (const AutomationError&) {
    PreparedStatement literal = statements_->take(plan.carriedOver);
    plan.prepared = plan.carriedOver;
    plan.values.clear();
    return literal;
  }
}

static void bindValues(sqlite3_stmt* statement, const std::vector<dialect::LiteralValue>& values,
                       const LargeLiterals* large) {
  int position = large != nullptr ? bindLargeLiterals(statement, *large) : 0;
  for (const dialect::LiteralValue& value : values) {
    const int bound = value.kind == dialect::LiteralValue::Kind::Integer
                          ? sqlite3_bind_int64(statement, ++position, value.integer)
                          : sqlite3_bind_text64(statement, ++position, value.text.data(),
                                                value.text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
    if (bound != SQLITE_OK) fail(kCommandFailed, sqlite3_errmsg(sqlite3_db_handle(statement)));
  }
}

std::unique_ptr<Recordset> SqliteConnection::run(Plan& plan, const LargeLiterals* large) {
  PreparedStatement prepared = prepare(plan);
  sqlite3_stmt* statement = prepared.statement.get();
  try {
    bindValues(statement, plan.values, large);
  } catch (...) {
    statements_->giveBack(std::move(prepared));
    throw;
  }
  wrote_ = wrote_ || sqlite3_stmt_readonly(statement) == 0;
  const int stepped = sqlite3_step(statement);
  if (stepped != SQLITE_ROW && stepped != SQLITE_DONE) {
    std::string description = failureText(statements_->db());
    // After a failed read or write of the file, SQLite has to recover (roll
    // back a journal) before the register can be used: that is left to a new
    // session, as if this one had been closed at once.
    switch (sqlite3_errcode(statements_->db())) {
      case SQLITE_IOERR:
      case SQLITE_FULL:
      case SQLITE_CORRUPT:
      case SQLITE_NOTADB:
      case SQLITE_CANTOPEN:
      case SQLITE_NOMEM:
      case SQLITE_PROTOCOL:
        damaged_ = true;
        damagedSessions.fetch_add(1, std::memory_order_relaxed);
        break;
      default:
        break;
    }
    try {
      followSchemaChange(prepared);
    } catch (...) {
      // The statement's own failure is the one to report.
    }
    statements_->giveBack(std::move(prepared));
    fail(kCommandFailed, std::move(description));
  }
  try {
    followSchemaChange(prepared);
  } catch (...) {
    statements_->giveBack(std::move(prepared));
    throw;
  }
  return std::make_unique<SqliteRecordset>(statements_, std::move(prepared), stepped == SQLITE_ROW);
}

std::unique_ptr<Recordset> SqliteConnection::execute(std::string_view statement) {
  if (!statements_) fail(kConnectionClosed, kConnectionClosedText);
  // Statements as record objects write them are short, and one that is
  // sent again is carried over once; one with large literals is not kept.
  if (statement.size() <= kLargeLiteralBytes) {
    if (auto found = plans_.find(statement); found != plans_.end()) {
      return run(found->second, nullptr);
    }
    Plan plan = planOf(statement, 1);
    if (plans_.size() >= kKeptPlans) plans_.clear();
    return run(plans_.emplace(std::string(statement), std::move(plan)).first->second, nullptr);
  }
  const LargeLiterals large(statement);
  Plan plan = large.any() ? planOf(large.statement(), static_cast<int>(large.values().size()) + 1)
                          : planOf(statement, 1);
  return run(plan, &large);
}

bool SqliteConnection::reusable() noexcept {
  if (!statements_ || damaged_ || statements_->anyTaken() ||
      sqlite3_get_autocommit(statements_->db()) == 0) {
    return false;
  }
  if (wrote_) {
    // What this session wrote goes into the register file now, as closing
    // it would have done: a copy of the file taken between two calls holds
    // every write. Where another connection is reading, the log is left for
    // whichever connection comes last, rather than waiting for it.
    sqlite3* db = statements_->db();
    sqlite3_busy_timeout(db, 0);
    sqlite3_wal_checkpoint_v2(db, "main", SQLITE_CHECKPOINT_TRUNCATE, nullptr, nullptr);
    sqlite3_busy_timeout(db, kBusyTimeoutMilliseconds);
    wrote_ = false;
  }
  return true;
}

bool SqliteConnection::current() noexcept {
  if (!statements_ || !identity_ || platform::fileIdentity(asPath(path_)) != identity_)
    return false;
  // Opening a register reads it, and so recovers what a failed write left
  // (a hot journal). Once a session of this process has met such a failure,
  // a kept session reads before it serves, so that the recovery, and any
  // failure of it, comes where an open would have met it.
  const std::uint64_t failures = damagedSessions.load(std::memory_order_relaxed);
  if (failures == failuresSeen_) return true;
  failuresSeen_ = failures;
  try {
    PreparedStatement version = statements_->take("PRAGMA schema_version");
    const bool read = sqlite3_step(version.statement.get()) == SQLITE_ROW;
    statements_->giveBack(std::move(version));
    return read;
  } catch (...) {
    return false;
  }
}

// Another program changed the register's tables since this session read them:
// SQLite prepared the statement again for the new ones, and what was carried
// over, or prepared, for the old ones is dropped.
void SqliteConnection::followSchemaChange(PreparedStatement& ran) {
  if (sqlite3_stmt_status(ran.statement.get(), SQLITE_STMTSTATUS_REPREPARE, 1) == 0) return;
  schemaVersion_ = schemaVersion(statements_->db());
  schema_ = cachedRegisterSchema(statements_->db(), path_, schemaVersion_);
  plans_.clear();
  statements_->clear();
  ran.columns = std::make_shared<const ResultColumns>(ran.statement.get());
}

void SqliteConnection::close() noexcept {
  plans_.clear();
  statements_.reset();
}

}  // namespace varnock::client::sqlite
