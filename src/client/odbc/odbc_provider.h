// SPDX-License-Identifier: MIT
// The ODBC providers, each named as ADO names it:
//   MSDASQL (also a connection string without Provider): the ODBC
//     connection string the caller gives, with DSN=, Driver={...} and the
//     driver's own keys;
//   SQLOLEDB, SQLNCLI (SQLNCLI10, SQLNCLI11), MSOLEDBSQL (MSOLEDBSQL19): SQL
//     Server's OLE DB keys, carried to a SQL Server ODBC driver (see
//     odbc_login.h for the choice of driver and the mapping).
// Their failures carry the provider's name as ADO reports it as source.
#pragma once

#include <string>
#include <string_view>

#include "client/provider.h"

namespace varnock::client::odbc {

inline constexpr const char* kOdbcSource = "Microsoft OLE DB Provider for ODBC Drivers";

// For registration under "MSDASQL".
Provider msdasqlProvider();

// For registration under "SQLOLEDB", "SQLNCLI" and "MSOLEDBSQL"; it answers
// to their numbered versions too.
Provider sqlServerProvider();

// The source of the SQL Server providers' failures, by the Provider value:
// "SQLOLEDB.1" -> "Microsoft OLE DB Provider for SQL Server", "SQLNCLI11" ->
// "Microsoft SQL Server Native Client 11.0", "MSOLEDBSQL" -> "Microsoft OLE
// DB Driver for SQL Server", "MSOLEDBSQL19" -> "Microsoft OLE DB Driver 19
// for SQL Server".
std::string sqlServerSource(std::string_view providerValue);

}  // namespace varnock::client::odbc
