// SPDX-License-Identifier: MIT
// How the SQLite provider fails: an AutomationError with the client's number,
// a description and the provider as source.
#pragma once

#include <cstdint>
#include <string>

namespace varnock::client::sqlite {

inline constexpr const char* kSqliteSource = "Varnock.SQLite";

// Raises AutomationError(number, description, kSqliteSource).
[[noreturn]] void fail(std::int32_t number, std::string description);

}  // namespace varnock::client::sqlite
