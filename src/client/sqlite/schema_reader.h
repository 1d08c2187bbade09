// SPDX-License-Identifier: MIT
// The register's schema as an SQLite database declares it.
#pragma once

#include <memory>
#include <string>

#include "client/dialect/register_schema.h"

struct sqlite3;

namespace varnock::client::sqlite {

using dialect::RegisterSchema;

// The schema of an open database. Raises kCannotOpen with SQLite's message
// when it cannot be read (a file that is not a database, for one).
RegisterSchema readRegisterSchema(sqlite3* db);

// The database's schema version now (PRAGMA schema_version): it changes
// whenever a table, column or index is made, changed or dropped.
long long schemaVersion(sqlite3* db);

// The schema of the database at `path` in the given schema version, read
// once per process and again only when the version has changed since.
std::shared_ptr<const RegisterSchema> cachedRegisterSchema(sqlite3* db, const std::string& path,
                                                           long long version);

}  // namespace varnock::client::sqlite
