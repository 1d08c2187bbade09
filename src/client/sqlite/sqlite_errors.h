// How the SQLite provider fails: an AutomationError with the client's number,
// a description and the provider as source.
#pragma once

#include <cstdint>
#include <string>

namespace varnock::client::sqlite {

inline constexpr const char* kSqliteSource = "Varnock.SQLite";

// SQL Server's own words for what its dialect refuses, so that callers read
// the same reasons whichever server holds the register.
inline constexpr const char* kTopNotIntegerText =
    "The number of rows provided for a TOP or FETCH clauses row count parameter must be an "
    "integer.";
inline constexpr const char* kTopInvalidText = "A TOP or FETCH clause contains an invalid value.";
inline constexpr const char* kDateConversionText =
    "Conversion failed when converting date and/or time from character string.";
inline constexpr const char* kDateOutOfRangeText =
    "The conversion of a varchar data type to a smalldatetime data type resulted in an "
    "out-of-range value.";

// Raises AutomationError(number, description, kSqliteSource).
[[noreturn]] void fail(std::int32_t number, std::string description);

}  // namespace varnock::client::sqlite
