// SPDX-License-Identifier: MIT
// The embedded SQLite provider: "Provider=SQLite;Data Source=PATH". It reads
// the SQL Server dialect that record objects send and keeps the register an
// ordinary SQLite database.
#pragma once

#include "client/provider.h"

namespace varnock::client::sqlite {

// What the provider does, for registration under the name "SQLite".
Provider sqliteProvider();

}  // namespace varnock::client::sqlite
