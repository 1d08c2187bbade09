#include "sql/frame.h"

#include <chrono>

#include "catalogue/catalogue.h"
#include "eventLog/event_log.h"
#include "record/record_state.h"
#include "sql/trace.h"

namespace varnock::sql {

Session::Session(const Record& record, std::string& statement)
    : statement_(statement), connection_(client::createConnection()) {
  connection_->open(record.get_DSN());
}

client::Recordset& Session::execute(std::string statement) {
  statement_ = std::move(statement);
  rows_.reset();
  if (!tracing()) {
    rows_ = connection_->execute(statement_);
    return *rows_;
  }
  const auto start = std::chrono::steady_clock::now();
  auto elapsed = [&] {
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() -
                                                                 start);
  };
  try {
    rows_ = connection_->execute(statement_);
  } catch (const std::exception& failure) {
    traceStatement(statement_, failure.what(), elapsed());
    throw;
  }
  traceStatement(statement_, {}, elapsed());
  return *rows_;
}

void Session::close() {
  rows_.reset();
  connection_->close();
}

AutomationError asAutomationError(const std::exception& failure) {
  if (const auto* automation = dynamic_cast<const AutomationError*>(&failure)) return *automation;
  return AutomationError(static_cast<std::int32_t>(0x80004005u), failure.what(),
                         AutomationError::kRuntimeSource);
}

void reportFailure(Record& record, std::string_view methodName, const AutomationError& failure,
                   std::string_view statement) {
  RecordState::setLastErrorMessage(record, failure.description());
  std::string message = failure.description();
  message.append(" [").append(failure.source()).append("] ").append("\r\n").append("SQL = ");
  message.append(statement);
  eventLog::ReportDataError(failure.number(), methodName, message);
}

void copyRow(Record& record, const client::Recordset& rows) {
  const catalogue::Table& table = record.table();
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    record.assign(i, rows.field(table.columns[i].field));
  }
}

}  // namespace varnock::sql
