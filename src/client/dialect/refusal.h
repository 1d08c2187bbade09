// What a dialect refuses because SQL Server itself would refuse it. The
// dialect knows no provider, so it raises StatementRefused with SQL Server's
// own words, and the provider running the statement raises that description
// as its own failure (kCommandFailed, with the provider as source).
#pragma once

#include <stdexcept>

namespace varnock::client::dialect {

inline constexpr const char* kTopNotIntegerText =
    "The number of rows provided for a TOP or FETCH clauses row count parameter must be an "
    "integer.";
inline constexpr const char* kTopInvalidText = "A TOP or FETCH clause contains an invalid value.";
inline constexpr const char* kDateConversionText =
    "Conversion failed when converting date and/or time from character string.";
inline constexpr const char* kDateOutOfRangeText =
    "The conversion of a varchar data type to a smalldatetime data type resulted in an "
    "out-of-range value.";

class StatementRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

[[noreturn]] inline void refuse(const char* description) {
  throw StatementRefused(description);
}

}  // namespace varnock::client::dialect
