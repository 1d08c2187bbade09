// SPDX-License-Identifier: MIT
// How the ODBC provider fails, in one place: the driver's diagnostic records
// become one AutomationError. Its description is every record's text as the
// driver manager gives it ("[unixODBC][Driver Manager]...", "[FreeTDS][SQL
// Server]..."), one per line, a text repeated word for word said once; its
// SQLSTATE and native error are the first record's, as ADO's first
// Error object carries them; its number is the HRESULT that ADO raises for
// that SQLSTATE (numberFor); its source is the provider's name as ADO gives
// it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "client/odbc/odbc_api.h"
#include "varnock/automation_error.h"

namespace varnock::client::odbc {

struct DiagnosticRecord {
  std::string sqlState;  // five characters: "08001"
  std::int32_t nativeError = 0;
  std::string message;
};

// The HRESULTs, by SQLSTATE class:
//   08 connection, 28 authorization, IM driver manager, HYT00/HYT01 timeout
//                                         0x80004005  E_FAIL
//   42 syntax or access rule              0x80040E14  DB_E_ERRORSINCOMMAND
//   23 integrity constraint               0x80040E2F  DB_E_INTEGRITYVIOLATION
//   22 data exception                     0x80040E57  DB_E_DATAOVERFLOW
//   22007, 22008, 22018 (a text that is no date or number)
//                                         0x80040E07  DB_E_CANTCONVERTVALUE
//   anything else (HY000, a general error)  0x80004005  E_FAIL, as ADO's
//                                         ODBC provider raises it
// Statements the provider itself refuses raise kCommandFailed
// (DB_E_ERRORSINCOMMAND), as SQL Server's refusals do.
std::int32_t numberFor(std::string_view sqlState);

inline constexpr std::int32_t kIntegrityViolation = static_cast<std::int32_t>(0x80040E2Fu);
inline constexpr std::int32_t kDataOverflow = static_cast<std::int32_t>(0x80040E57u);
inline constexpr std::int32_t kCannotConvertValue = static_cast<std::int32_t>(0x80040E07u);

// The failure the records describe; records without any (a driver that
// says nothing) give a description that says so.
AutomationError errorFrom(const std::vector<DiagnosticRecord>& records, const std::string& source);

// Every diagnostic record of a handle, in order (SQLGetDiagRecW).
std::vector<DiagnosticRecord> diagnosticsOf(SQLSMALLINT handleType, SQLHANDLE handle);

// Raises errorFrom(diagnosticsOf(handle), ...).
[[noreturn]] void raiseFrom(SQLSMALLINT handleType, SQLHANDLE handle, const std::string& source);

// Raises the provider's own failure: no SQLSTATE, no native error.
[[noreturn]] void fail(std::int32_t number, std::string description, const std::string& source);

}  // namespace varnock::client::odbc
