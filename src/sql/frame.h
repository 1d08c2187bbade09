// The frame every data method runs in: a connection of its own, opened with
// the record's DSN for the length of one call, the statement as built so far,
// and the common error path. Nothing outlives the call.
//
//   return framed(record, "GetFirst", false, [&](Session& s) {
//     auto& rows = s.execute(statement);
//     ...
//   });
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "client/client.h"
#include "varnock/automation_error.h"
#include "varnock/record.h"

namespace varnock::sql {

class Session {
 public:
  // Creates the connection and opens it with the record's DSN.
  Session(const Record& record, std::string& statement);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  // Releases the rows and then the connection, without closing them: that is
  // the error path's way; the normal path calls close() first.
  ~Session() = default;

  // Keeps the text for the error path, traces it, and runs it.
  client::Recordset& execute(std::string statement);
  void close();

 private:
  std::string& statement_;
  std::unique_ptr<client::Connection> connection_;
  std::unique_ptr<client::Recordset> rows_;
};

// The error path: stores the description as the last error message, composes
// description + " [" + source + "] " + "\r\n" + "SQL = " + statement, and
// reports it under `methodName` with the failure's number. Raises only what
// the event log writer raises.
void reportFailure(Record& record, std::string_view methodName, const AutomationError& failure,
                   std::string_view statement);

// Any failure as the automation error it is reported as.
AutomationError asAutomationError(const std::exception& failure);

// Runs `body` (taking a Session&) in the frame; on any failure takes the error
// path under `methodName` and returns `failureValue`.
template <class Result, class Body>
Result framedAs(Record& record, std::string_view methodName, Result failureValue, Body&& body) {
  std::string statement;
  try {
    Session session(record, statement);
    Result result = body(session);
    session.close();
    return result;
  } catch (const std::exception& failure) {
    reportFailure(record, methodName, asAutomationError(failure), statement);
    return failureValue;
  }
}

// The same for the methods named verb + table name ("GetFirstCountry").
template <class Result, class Body>
Result framed(Record& record, std::string_view verb, Result failureValue, Body&& body) {
  return framedAs(record, std::string(verb) + record.GetTableName(), std::move(failureValue),
                  std::forward<Body>(body));
}

// Copies the current row into the record, column by column in column order,
// each value through the column's assignment and its checks.
void copyRow(Record& record, const client::Recordset& rows);

}  // namespace varnock::sql
