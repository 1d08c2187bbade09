// SPDX-License-Identifier: MIT
#include "client/odbc/odbc_session.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <utility>

#include "client/odbc/column_values.h"
#include "client/odbc/odbc_api.h"
#include "client/odbc/odbc_errors.h"
#include "client/odbc/wide_text.h"
#include "client/statement_kind.h"
#include "varnock/automation_error.h"

namespace varnock::client::odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "the wide calls take UTF-16 code units");

namespace {

SQLWCHAR* wide(std::u16string& text) {
  return reinterpret_cast<SQLWCHAR*>(text.data());
}

// Attributes a driver may not offer: one it refuses leaves its default.
void setAttribute(SQLHDBC connection, SQLINTEGER attribute, SQLULEN value) {
  SQLSetConnectAttrW(connection, attribute, reinterpret_cast<SQLPOINTER>(value), 0);
}

std::string dbmsName(SQLHDBC connection, const std::string& source) {
  std::u16string name(128, u'\0');
  SQLSMALLINT bytes = 0;
  if (!SQL_SUCCEEDED(SQLGetInfoW(connection, SQL_DBMS_NAME, wide(name),
                                 static_cast<SQLSMALLINT>(name.size() * 2), &bytes))) {
    raiseFrom(SQL_HANDLE_DBC, connection, source);
  }
  name.resize(std::min(name.size(), static_cast<std::size_t>(bytes) / 2));
  return toUtf8(name);
}

// The rows of the current result, every value read as it comes.
ResultRows readResult(SQLHSTMT statement, const std::string& source) {
  const std::vector<ResultColumn> columns = resultColumns(statement, source);
  ResultRows result;
  for (const ResultColumn& column : columns)
    result.names.push_back(column.name);
  std::vector<std::vector<Variant>>& rows = result.rows;
  if (!columns.empty()) {
    for (;;) {
      const SQLRETURN fetched = SQLFetch(statement);
      if (fetched == SQL_NO_DATA) break;
      if (!SQL_SUCCEEDED(fetched)) raiseFrom(SQL_HANDLE_STMT, statement, source);
      std::vector<Variant>& row = rows.emplace_back();
      row.reserve(columns.size());
      for (std::size_t i = 0; i < columns.size(); ++i) {
        row.push_back(
            columnValue(statement, static_cast<SQLUSMALLINT>(i + 1), columns[i].kind, source));
      }
    }
  }
  return result;
}

}  // namespace

OdbcSession::OdbcSession(const OdbcLogin& login, std::string source)
    : source_(std::move(source)), connection_(std::make_shared<ConnectionHandle>(source_)) {
  std::u16string text = toUtf16(login.connectionString);
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<SQLSMALLINT>::max())) {
    fail(kCannotOpen, "The connection string is too long for ODBC.", source_);
  }
  const SQLHDBC dbc = connection_->get();
  setAttribute(dbc, SQL_ATTR_LOGIN_TIMEOUT, login.loginTimeoutSeconds);
  if (login.packetSize) setAttribute(dbc, SQL_ATTR_PACKET_SIZE, *login.packetSize);
  const SQLRETURN connected =
      SQLDriverConnectW(dbc, nullptr, wide(text), static_cast<SQLSMALLINT>(text.size()), nullptr, 0,
                        nullptr, SQL_DRIVER_NOPROMPT);
  if (!SQL_SUCCEEDED(connected)) raiseFrom(SQL_HANDLE_DBC, dbc, source_);
  connection_->markConnected();
  databaseName_ = dbmsName(dbc, source_);
  dialect_ = dialect::dialectForDatabase(databaseName_);
  if (dialect_ == nullptr) {
    fail(kCannotOpen,
         "The ODBC data source is a database of kind \"" + databaseName_ +
             "\", which Varnock cannot run its statements on.",
         source_);
  }
}

namespace {

// SQLite's ODBC driver, as Debian builds it, has no wide calls: the driver
// manager would narrow each UTF-16 unit of a statement to one byte. The
// driver reads its narrow text as UTF-8, SQLite's own encoding, so
// statements for it go narrow and in UTF-8. Its results are still read wide.
bool takesUtf8Statements(const dialect::DatabaseDialect& dialect) {
  return dialect.kind == "SQLite";
}

// Hands a statement's text to the driver, to run at once or to prepare.
SQLRETURN sendText(SQLHSTMT statement, std::string_view sql, bool utf8, bool prepare,
                   const std::string& source) {
  if (sql.size() > static_cast<std::size_t>(std::numeric_limits<SQLINTEGER>::max())) {
    fail(kCommandFailed, "The command text is too long for ODBC.", source);
  }
  if (utf8) {
    std::string text(sql);
    auto* narrow = reinterpret_cast<SQLCHAR*>(text.data());
    const auto length = static_cast<SQLINTEGER>(text.size());
    return prepare ? SQLPrepare(statement, narrow, length)
                   : SQLExecDirect(statement, narrow, length);
  }
  std::u16string text = toUtf16(sql);
  const auto length = static_cast<SQLINTEGER>(text.size());
  return prepare ? SQLPrepareW(statement, wide(text), length)
                 : SQLExecDirectW(statement, wide(text), length);
}

// Texts seen once are remembered by their hash, at most this many; texts
// prepared are kept, at most this many, per session.
constexpr std::size_t kTextsSeen = 1024;
constexpr std::size_t kTextsPrepared = 64;
// Longer texts are written for one use (large values), never prepared.
constexpr std::size_t kPreparedTextLimit = 4096;

// Statements that read or write rows, of a length written for more than one
// use. Transaction control and settings run as given: a driver may manage
// transactions of its own around prepared statements.
bool preparable(std::string_view sql) {
  return sql.size() <= kPreparedTextLimit && readsOrWritesRows(sql);
}

// Closes a prepared statement's cursor however its rows are left, so that it
// can run again.
class CursorCloser {
 public:
  explicit CursorCloser(SQLHSTMT statement) : statement_(statement) {}
  CursorCloser(const CursorCloser&) = delete;
  CursorCloser& operator=(const CursorCloser&) = delete;
  ~CursorCloser() { SQLFreeStmt(statement_, SQL_CLOSE); }

 private:
  SQLHSTMT statement_;
};

}  // namespace

// A text that comes a second time is prepared, and kept, for the times after:
// preparing costs more than running a text once (on PostgreSQL's driver two
// to three times), running a prepared one about half as much.
ResultRows OdbcSession::run(std::string_view sql) {
  const bool utf8 = takesUtf8Statements(*dialect_);
  if (const auto kept = prepared_.find(sql); kept != prepared_.end()) {
    try {
      return readAll(kept->second->get(), SQLExecute(kept->second->get()), true);
    } catch (const AutomationError&) {
      // A prepared statement may no longer fit its tables (made again since):
      // it is dropped, and the text runs as it would the first time. A
      // statement that failed had no effect, the session committing each.
      prepared_.erase(kept);
    }
  } else if (preparable(sql) && seen_.contains(std::hash<std::string_view>{}(sql))) {
    auto statement = std::make_unique<StatementHandle>(connection_, source_);
    if (SQL_SUCCEEDED(sendText(statement->get(), sql, utf8, true, source_))) {
      if (prepared_.size() >= kTextsPrepared) prepared_.clear();
      const SQLHSTMT handle = statement->get();
      prepared_.emplace(std::string(sql), std::move(statement));
      return readAll(handle, SQLExecute(handle), true);
    }
  }
  if (preparable(sql)) {
    if (seen_.size() >= kTextsSeen) seen_.clear();
    seen_.insert(std::hash<std::string_view>{}(sql));
  }
  const StatementHandle statement(connection_, source_);
  return readAll(statement.get(), sendText(statement.get(), sql, utf8, false, source_), false);
}

ResultRows OdbcSession::readAll(SQLHSTMT statement, SQLRETURN ran, bool prepared) {
  std::optional<CursorCloser> closer;
  if (prepared) closer.emplace(statement);
  // SQL_NO_DATA: a write that met no row.
  if (ran == SQL_NO_DATA) {
    lastAnswer_ = std::chrono::steady_clock::now();
    return {};
  }
  if (!SQL_SUCCEEDED(ran)) raiseFrom(SQL_HANDLE_STMT, statement, source_);
  lastAnswer_ = std::chrono::steady_clock::now();
  ResultRows rows = readResult(statement, source_);
  for (;;) {
    const SQLRETURN next = SQLMoreResults(statement);
    if (next == SQL_NO_DATA) break;
    if (!SQL_SUCCEEDED(next)) raiseFrom(SQL_HANDLE_STMT, statement, source_);
  }
  return rows;
}

void OdbcSession::setAutocommit(bool on) {
  const SQLRETURN set = SQLSetConnectAttrW(connection_->get(), SQL_ATTR_AUTOCOMMIT,
                                           reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(
                                               on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF)),
                                           SQL_IS_UINTEGER);
  if (!SQL_SUCCEEDED(set)) raiseFrom(SQL_HANDLE_DBC, connection_->get(), source_);
}

void OdbcSession::commit() {
  if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, connection_->get(), SQL_COMMIT))) {
    raiseFrom(SQL_HANDLE_DBC, connection_->get(), source_);
  }
}

void OdbcSession::rollback() noexcept {
  SQLEndTran(SQL_HANDLE_DBC, connection_->get(), SQL_ROLLBACK);
}

std::vector<std::string> OdbcSession::tableNames() {
  const StatementHandle statement(connection_, source_);
  std::u16string type = u"TABLE";
  if (!SQL_SUCCEEDED(SQLTablesW(statement.get(), nullptr, 0, nullptr, 0, nullptr, 0, wide(type),
                                static_cast<SQLSMALLINT>(type.size())))) {
    raiseFrom(SQL_HANDLE_STMT, statement.get(), source_);
  }
  std::vector<std::string> names;
  for (;;) {
    const SQLRETURN fetched = SQLFetch(statement.get());
    if (fetched == SQL_NO_DATA) break;
    if (!SQL_SUCCEEDED(fetched)) raiseFrom(SQL_HANDLE_STMT, statement.get(), source_);
    // TABLE_NAME is the third column of SQLTables' result.
    const Variant name = columnValue(statement.get(), 3, ValueKind::Text, source_);
    if (!name.isNull()) names.push_back(name.asString());
  }
  return names;
}

bool OdbcSession::answers() noexcept {
  SQLUINTEGER dead = SQL_CD_FALSE;
  if (SQL_SUCCEEDED(
          SQLGetConnectAttrW(connection_->get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr)) &&
      dead == SQL_CD_TRUE) {
    return false;
  }
  // A driver learns of a connection the server dropped only when it next
  // uses it.
  if (std::chrono::steady_clock::now() - lastAnswer_ < std::chrono::seconds(1)) return true;
  try {
    run("SELECT 1");
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace varnock::client::odbc
