// SPDX-License-Identifier: MIT
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
#include "record/failure_report.h"
#include "varnock/collection.h"
#include "varnock/record.h"

namespace varnock::sql {

class Session {
 public:
  // Opens a connection with the record's DSN.
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

// Every remaining row as a new record object of `tableName` that works on
// `owner`'s register, in row order.
std::shared_ptr<Collection> collectRows(const Record& owner, std::string_view tableName,
                                        client::Recordset& rows);

}  // namespace varnock::sql
