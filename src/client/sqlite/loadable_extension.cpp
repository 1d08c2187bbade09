// SPDX-License-Identifier: MIT
// The register's collation and like() as an SQLite loadable extension, for
// programs other than Varnock that open a register: the sqlite3 shell
// (".load varnock_nocase") and SQLite's ODBC driver ("LoadExt=" in the
// connection string). The file is named varnock_nocase.so, so SQLite finds
// the entry point below by its own naming rule, without being told.
#include <sqlite3ext.h>
SQLITE_EXTENSION_INIT1

#include "client/sqlite/unicode_text.h"

extern "C" __attribute__((visibility("default"))) int sqlite3_varnocknocase_init(
    sqlite3* db, char** error, const sqlite3_api_routines* api) {
  SQLITE_EXTENSION_INIT2(api);
  const int result = varnock::client::sqlite::registerUnicodeText(db);
  if (result != SQLITE_OK && error != nullptr) {
    *error = sqlite3_mprintf("varnock_nocase: %s", sqlite3_errstr(result));
  }
  return result;
}
