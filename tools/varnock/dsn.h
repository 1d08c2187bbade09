// SPDX-License-Identifier: MIT
// Which register a call opens: --dsn, else VARNOCK_DSN, else ./register.db.
// A value containing "=" is a connection string as it stands; any other value
// is the path of a SQLite register.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace varnock::cli {

// The connection string of a --dsn value or a VARNOCK_DSN value.
std::string connectionStringOf(std::string_view dsnOrPath);

// The connection string a call uses, given --dsn if it was given.
std::string chosenConnectionString(const std::optional<std::string>& option);

}  // namespace varnock::cli
