// SPDX-License-Identifier: MIT
#include "client/odbc/odbc_errors.h"

#include <utility>

#include "client/client.h"
#include "client/odbc/odbc_api.h"
#include "client/odbc/wide_text.h"

namespace varnock::client::odbc {

namespace {

constexpr const char* kSilentDriverText =
    "The ODBC driver reported a failure without a diagnostic record.";

bool inClass(std::string_view sqlState, std::string_view sqlClass) {
  return sqlState.substr(0, sqlClass.size()) == sqlClass;
}

}  // namespace

std::int32_t numberFor(std::string_view sqlState) {
  if (inClass(sqlState, "42")) return kCommandFailed;
  if (inClass(sqlState, "23")) return kIntegrityViolation;
  if (sqlState == "22007" || sqlState == "22008" || sqlState == "22018") {
    return kCannotConvertValue;
  }
  if (inClass(sqlState, "22")) return kDataOverflow;
  return kCannotOpen;
}

AutomationError errorFrom(const std::vector<DiagnosticRecord>& records, const std::string& source) {
  if (records.empty()) return AutomationError(kCannotOpen, kSilentDriverText, source);
  // A driver that tried several addresses repeats its words for each; they
  // are said once.
  std::string description;
  for (std::size_t i = 0; i < records.size(); ++i) {
    bool repeated = false;
    for (std::size_t earlier = 0; earlier < i && !repeated; ++earlier)
      repeated = records[earlier].message == records[i].message;
    if (repeated) continue;
    if (!description.empty()) description += '\n';
    description += records[i].message;
  }
  const DiagnosticRecord& first = records.front();
  return AutomationError(numberFor(first.sqlState), std::move(description), source, first.sqlState,
                         first.nativeError);
}

std::vector<DiagnosticRecord> diagnosticsOf(SQLSMALLINT handleType, SQLHANDLE handle) {
  std::vector<DiagnosticRecord> records;
  for (SQLSMALLINT number = 1;; ++number) {
    SQLWCHAR state[6] = {};
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    std::u16string message(512, u'\0');
    SQLRETURN got = SQLGetDiagRecW(handleType, handle, number, state, &native,
                                   reinterpret_cast<SQLWCHAR*>(message.data()),
                                   static_cast<SQLSMALLINT>(message.size()), &length);
    if (got == SQL_SUCCESS_WITH_INFO && static_cast<std::size_t>(length) >= message.size()) {
      // A longer text: ask again with room for all of it.
      message.assign(static_cast<std::size_t>(length) + 1, u'\0');
      got = SQLGetDiagRecW(handleType, handle, number, state, &native,
                           reinterpret_cast<SQLWCHAR*>(message.data()),
                           static_cast<SQLSMALLINT>(message.size()), &length);
    }
    if (!SQL_SUCCEEDED(got)) break;
    message.resize(std::min(message.size(), static_cast<std::size_t>(length)));
    std::u16string stateText;
    for (const SQLWCHAR unit : state) {
      if (unit == 0) break;
      stateText += static_cast<char16_t>(unit);
    }
    records.push_back({toUtf8(stateText), static_cast<std::int32_t>(native), toUtf8(message)});
  }
  return records;
}

void raiseFrom(SQLSMALLINT handleType, SQLHANDLE handle, const std::string& source) {
  throw errorFrom(diagnosticsOf(handleType, handle), source);
}

void fail(std::int32_t number, std::string description, const std::string& source) {
  throw AutomationError(number, std::move(description), source);
}

}  // namespace varnock::client::odbc
