// SPDX-License-Identifier: MIT
#include "client/odbc/odbc_connection.h"

#include <map>
#include <mutex>
#include <utility>

#include "client/dialect/refusal.h"
#include "client/odbc/buffered_recordset.h"
#include "client/odbc/odbc_errors.h"
#include "client/odbc/statement_split.h"

namespace varnock::client::odbc {

namespace {

// SQLite's defaults leave foreign keys unchecked; the register holds them on
// every connection, as SQL Server does.
void holdForeignKeys(OdbcSession& session) {
  if (session.dialect().kind == "SQLite") session.run("PRAGMA foreign_keys = ON");
}

// The schema, and in `columns` how many columns it lists.
dialect::RegisterSchema readSchema(OdbcSession& session, std::size_t& columns) {
  dialect::RegisterSchema schema;
  columns = 0;
  const std::string_view query = session.dialect().schemaQuery;
  if (query.empty()) return schema;
  // Table, column and declared type, by position: the query's own column
  // names differ between databases.
  const auto text = [](const Variant& value) { return value.isString() ? value.asString() : ""; };
  for (const std::vector<Variant>& row : session.run(query).rows) {
    if (row.size() >= 3) {
      schema.addColumn(text(row[0]), text(row[1]), text(row[2]));
      ++columns;
    }
  }
  return schema;
}

// Schemas read, by ODBC connection string. A connection is opened for every
// data method, and reading the schema each time would cost more than the
// statement it serves (on PostgreSQL a query of information_schema on a new
// backend, several times the statement). A register's schema does not change
// once made; creating one forgets what was kept for its connection string.
// An empty schema (no register there yet) is not kept.
struct SchemaCache {
  std::mutex mutex;
  std::map<std::string, std::shared_ptr<const dialect::RegisterSchema>> schemas;
};

SchemaCache& schemaCache() {
  static SchemaCache cache;
  return cache;
}

std::shared_ptr<const dialect::RegisterSchema> schemaOf(OdbcSession& session,
                                                        const std::string& connectionString) {
  SchemaCache& cache = schemaCache();
  {
    const std::lock_guard lock(cache.mutex);
    const auto kept = cache.schemas.find(connectionString);
    if (kept != cache.schemas.end()) return kept->second;
  }
  std::size_t columns = 0;
  auto schema = std::make_shared<const dialect::RegisterSchema>(readSchema(session, columns));
  if (columns > 0) {
    const std::lock_guard lock(cache.mutex);
    cache.schemas.insert_or_assign(connectionString, schema);
  }
  return schema;
}

}  // namespace

void forgetSchema(const std::string& connectionString) {
  SchemaCache& cache = schemaCache();
  const std::lock_guard lock(cache.mutex);
  cache.schemas.erase(connectionString);
}

namespace {

// The file of an SQLite register, as SQLite's driver takes it (Database=).
std::optional<std::string> sqliteFileOf(const OdbcLogin& login) {
  return ConnectionString(login.connectionString).get("Database");
}

}  // namespace

OdbcConnection::OdbcConnection(const OdbcLogin& login, std::string source)
    : source_(std::move(source)) {
  // Taken before the driver opens the file: a file replaced meanwhile is
  // then seen as replaced, never the other way round.
  std::optional<std::string> file = sqliteFileOf(login);
  if (file) file_ = platform::fileIdentity(*file);
  session_ = std::make_unique<OdbcSession>(login, source_);
  if (session_->dialect().kind != "SQLite") file_.reset();
  sqliteFile_ = session_->dialect().kind == "SQLite" ? std::move(file) : std::nullopt;
  holdForeignKeys(*session_);
  connectionString_ = login.connectionString;
  schema_ = schemaOf(*session_, connectionString_);
}

std::unique_ptr<Recordset> OdbcConnection::execute(std::string_view statement) {
  if (!session_) fail(kConnectionClosed, kConnectionClosedText, source_);
  const std::vector<std::string_view> statements = splitStatements(statement);
  if (statements.empty()) fail(kCommandFailed, kNoStatementText, source_);
  if (statements.size() > 1) fail(kCommandFailed, kSeveralStatementsText, source_);
  std::string translated;
  try {
    translated = session_->dialect().translate(statements.front(), *schema_);
  } catch (const dialect::StatementRefused& refused) {
    fail(kCommandFailed, refused.what(), source_);
  }
  ResultRows result = session_->run(withoutComments(translated));
  return std::make_unique<BufferedRecordset>(std::move(result.names), std::move(result.rows),
                                             source_);
}

bool OdbcConnection::current() noexcept {
  if (!session_) return false;
  if (sqliteFile_ && (!file_ || platform::fileIdentity(*sqliteFile_) != file_)) return false;
  if (!session_->answers()) return false;
  // A register made, or its schema forgotten, since this session last served.
  try {
    schema_ = schemaOf(*session_, connectionString_);
  } catch (...) {
    return false;
  }
  return true;
}

void OdbcConnection::close() noexcept {
  session_.reset();
}

}  // namespace varnock::client::odbc
