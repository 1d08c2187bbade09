// SPDX-License-Identifier: MIT
// SQL Server's conversions of the literals a statement gives bit and int
// columns, for databases that would convert them otherwise or not at all.
// Each raises StatementRefused with SQL Server's words where its conversion
// fails.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "client/dialect/sql_tokens.h"

namespace varnock::client::dialect {

// The whole number an int column stores for a number literal written after
// a minus sign (`negative`) or none: the fraction cut off towards zero (an
// exponent form is a float, and cut the same way). Outside int's range it
// raises kIntOverflowText. nullopt for a hexadecimal literal, which SQL
// Server reads as binary: it is left as written.
std::optional<std::string> intOfNumber(std::string_view literal, bool negative);

// The int a String token converts to, as decimal digits: a whole number
// with blanks around it and an optional sign; the empty text is 0.
std::string intOfString(const Token& literal);

// False for a number literal that is zero, true for any other.
bool bitOfNumber(std::string_view literal);

// The bit a String token converts to: 'true' and 'false' in any case, or a
// whole number, true unless zero; the empty text is false.
bool bitOfString(const Token& literal);

}  // namespace varnock::client::dialect
