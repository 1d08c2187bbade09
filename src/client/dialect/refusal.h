// SPDX-License-Identifier: MIT
// What a dialect refuses because SQL Server itself would refuse it. The
// dialect knows no provider, so it raises StatementRefused with SQL Server's
// own words, and the provider running the statement raises that description
// as its own failure (kCommandFailed, with the provider as source).
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

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

inline constexpr const char* kIntOverflowText =
    "Arithmetic overflow error converting expression to data type int.";

// "Conversion failed when converting the varchar value 'yes' to data type
// bit.": a character string that is no value of the type; `unicode` for an
// N'' literal, which SQL Server calls nvarchar.
inline std::string conversionFailedText(std::string_view value, bool unicode,
                                        std::string_view type) {
  return "Conversion failed when converting the " + std::string(unicode ? "nvarchar" : "varchar") +
         " value '" + std::string(value) + "' to data type " + std::string(type) + ".";
}

// "The conversion of the varchar value '3000000000' overflowed an int
// column.": a character string whose number is out of int's range.
inline std::string stringOverflowText(std::string_view value, bool unicode) {
  return "The conversion of the " + std::string(unicode ? "nvarchar" : "varchar") + " value '" +
         std::string(value) + "' overflowed an int column.";
}

class StatementRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

[[noreturn]] inline void refuse(const std::string& description) {
  throw StatementRefused(description);
}

}  // namespace varnock::client::dialect
