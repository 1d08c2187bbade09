// SPDX-License-Identifier: MIT
// KIRNA_utility: the stateless value checks that every column assignment
// applies, chosen by SQL type name, and FindItem, the search for a whole item
// in a delimited list. The checks classify and never convert. Thread-safe.
#pragma once

#include <cstdint>
#include <string_view>

#include "varnock/variant.h"

namespace varnock::KIRNA_utility {

// The test a SQL type name selects.
enum class TypeClass : std::uint8_t { Boolean, Numeric, Date, Identifier, Text, Unknown };

// The class of a type name, compared after folding to lower case only
// ("INT" is int, " int" is unknown).
TypeClass classify(std::string_view sqlTypeName);

// Whether the test of that class accepts the value (Unknown accepts nothing).
bool passes(TypeClass typeClass, const Variant& value);

// True if the value may be stored in a column of that SQL type. A type name
// that is not text is unknown.
bool IsValidForSqlType(const Variant& value, const Variant& sqlTypeName);

// True if the value converts to a boolean without error.
bool IsBooleanValue(const Variant& value);

// True if the value's text starts with "{" and ends with "}".
bool IsGuidValue(const Variant& value);

// The position (from 1) of `item` as a whole element of `list` split by
// `delimiter`, or 0. compareMode 0 compares exactly, 1 ignores case. A
// run-time error (an argument that is not text, a bad mode) is trapped:
// the result is 0 and an event with the error's number, source "FindItem"
// and text description + "[" + error source + "]" is written.
std::int32_t FindItem(const Variant& list, const Variant& item, const Variant& delimiter,
                      const Variant& compareMode = Variant(std::int16_t{0}));

}  // namespace varnock::KIRNA_utility
