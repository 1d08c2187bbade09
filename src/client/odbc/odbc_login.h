// SPDX-License-Identifier: MIT
// From an OLE DB style connection string to what SQLDriverConnect needs: an
// ODBC connection string and the attributes set before connecting. Pure
// functions of their arguments, so every mapping is tested without a driver.
//
//   OdbcLogin login = sqlServerLogin(ConnectionString(text), installedDrivers(), std::nullopt);
//   SQLSetConnectAttrW(dbc, SQL_ATTR_LOGIN_TIMEOUT, login.loginTimeoutSeconds, 0);
//   SQLDriverConnectW(dbc, ..., toUtf16(login.connectionString), ...);
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "client/connection_string.h"

namespace varnock::client::odbc {

// How long an open waits for the server, as ADO's ConnectionTimeout: 15
// seconds unless "Connect Timeout" says otherwise (0 waits as long as the
// driver does).
inline constexpr unsigned kDefaultLoginTimeoutSeconds = 15;

// Names the ODBC driver that the SQL Server providers use, instead of the
// choice below; its value is a driver name as odbcinst.ini registers it.
inline constexpr const char* kSqlServerDriverVariable = "VARNOCK_SQLSERVER_DRIVER";

// The SQL Server drivers tried in order when the setting names none;
// FreeTDS is the last and is named even when it is not installed, so that
// the driver manager says what is missing.
inline constexpr const char* kMicrosoftDrivers[] = {"ODBC Driver 18 for SQL Server",
                                                    "ODBC Driver 17 for SQL Server"};
inline constexpr const char* kFreeTdsDriver = "FreeTDS";

struct InstalledDriver {
  std::string name;     // as odbcinst.ini names it: "FreeTDS"
  std::string library;  // its Driver= attribute: "libtdsodbc.so"; may be empty
};

struct OdbcLogin {
  std::string connectionString;
  unsigned loginTimeoutSeconds = kDefaultLoginTimeoutSeconds;
  // SQL_ATTR_PACKET_SIZE, for a driver that takes the packet size that way
  // rather than as a key.
  std::optional<unsigned> packetSize;
};

// MSDASQL: the driver's own keys pass through in their order (a later key of
// the same name replaces an earlier one); "Data Source" names a DSN, "User
// ID" and "Password" become UID and PWD, "Connect Timeout" the login
// timeout; Provider and Persist Security Info are dropped.
OdbcLogin odbcLogin(const ConnectionString& connectionString);

// The SQL Server providers (SQLOLEDB, SQLNCLI, MSOLEDBSQL): their keys mapped
// to the keys of the chosen driver (`preferredDriver` first, then Microsoft's
// drivers, then FreeTDS). Keys that mean nothing to ODBC are ignored.
OdbcLogin sqlServerLogin(const ConnectionString& connectionString,
                         const std::vector<InstalledDriver>& installed,
                         const std::optional<std::string>& preferredDriver);

// The server as the drivers read it: "(local)", "." and "(localdb)\..." are
// the local host; "tcp:" and the other protocol prefixes go; "host,port" and
// "host\instance" stay as they are, which FreeTDS and Microsoft's drivers
// both read.
std::string serverFor(std::string_view dataSource);

// "key=value" for an ODBC connection string, the value in braces (its "}"
// doubled) when it would otherwise end early or lose blanks; a value already
// in braces stays as it is.
std::string odbcPair(std::string_view key, std::string_view value);

}  // namespace varnock::client::odbc
