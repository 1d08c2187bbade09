// SPDX-License-Identifier: MIT
// The one place that names the providers built into the library.
#include "client/odbc/odbc_provider.h"
#include "client/provider.h"
#include "client/sqlite/sqlite_provider.h"

namespace varnock::client {

void registerBuiltInProviders() {
  registerProvider("SQLite", sqlite::sqliteProvider());
  registerProvider(kDefaultProvider, odbc::msdasqlProvider());
  for (const char* sqlServer : {"SQLOLEDB", "SQLNCLI", "MSOLEDBSQL"})
    registerProvider(sqlServer, odbc::sqlServerProvider());
}

}  // namespace varnock::client
