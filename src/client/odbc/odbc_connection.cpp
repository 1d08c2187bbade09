#include "client/odbc/odbc_connection.h"

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

dialect::RegisterSchema schemaOf(OdbcSession& session) {
  dialect::RegisterSchema schema;
  const std::string_view query = session.dialect().schemaQuery;
  if (query.empty()) return schema;
  // Table, column and declared type, by position: the query's own column
  // names differ between databases.
  const auto text = [](const Variant& value) { return value.isString() ? value.asString() : ""; };
  for (const std::vector<Variant>& row : session.run(query).rows) {
    if (row.size() >= 3) schema.addColumn(text(row[0]), text(row[1]), text(row[2]));
  }
  return schema;
}

}  // namespace

OdbcConnection::OdbcConnection(const OdbcLogin& login, std::string source)
    : session_(std::make_unique<OdbcSession>(login, source)), source_(std::move(source)) {
  holdForeignKeys(*session_);
  schema_ = schemaOf(*session_);
}

std::unique_ptr<Recordset> OdbcConnection::execute(std::string_view statement) {
  if (!session_) fail(kConnectionClosed, kConnectionClosedText, source_);
  const std::vector<std::string_view> statements = splitStatements(statement);
  if (statements.empty()) fail(kCommandFailed, kNoStatementText, source_);
  if (statements.size() > 1) fail(kCommandFailed, kSeveralStatementsText, source_);
  std::string translated;
  try {
    translated = session_->dialect().translate(statements.front(), schema_);
  } catch (const dialect::StatementRefused& refused) {
    fail(kCommandFailed, refused.what(), source_);
  }
  ResultRows result = session_->run(withoutComments(translated));
  return std::make_unique<BufferedRecordset>(std::move(result.names), std::move(result.rows),
                                             source_);
}

void OdbcConnection::close() noexcept {
  session_.reset();
}

}  // namespace varnock::client::odbc
