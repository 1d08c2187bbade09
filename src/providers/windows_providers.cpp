// SPDX-License-Identifier: MIT
// The providers built into Varnock.dll: ODBC's, as on Linux. There is no
// embedded SQLite on Windows; a register file is reached through the SQLite
// ODBC driver (Driver=SQLite3;Database=PATH).
#include "client/odbc/odbc_provider.h"
#include "client/provider.h"

namespace varnock::client {

void registerBuiltInProviders() {
  registerProvider(kDefaultProvider, odbc::msdasqlProvider());
  for (const char* sqlServer : {"SQLOLEDB", "SQLNCLI", "MSOLEDBSQL"})
    registerProvider(sqlServer, odbc::sqlServerProvider());
}

}  // namespace varnock::client
