// SPDX-License-Identifier: MIT
// The register's comparison of texts, given to an SQLite connection: the
// collation that the register's text columns declare, and a like() in place
// of SQLite's, both folding case beyond ASCII (src/collation/). The provider
// registers them on every connection it opens; this file is built into the
// loadable extension too (loadable_extension.cpp), which registers them on a
// connection of the sqlite3 shell or of SQLite's ODBC driver. They keep no
// state, so a connection may call them from any thread.
#pragma once

struct sqlite3;

namespace varnock::client::sqlite {

// The collation's name, as the register's DDL declares it. It is not NOCASE
// on purpose: a program without it refuses the statements that need it,
// instead of writing through indexes in another order.
inline constexpr const char* kCollationName = "VARNOCK_NOCASE";

// Registers the collation and like() (with two and three arguments) on `db`;
// SQLite's result code, SQLITE_OK when all three are in place.
int registerUnicodeText(sqlite3* db);

}  // namespace varnock::client::sqlite
