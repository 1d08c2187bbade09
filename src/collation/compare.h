// SPDX-License-Identifier: MIT
// The order of the register's texts: code point by code point after simple
// case folding, so "ZÜRICH" and "Zürich" are equal and "é" and "e" are not.
// Any bytes compare, UTF-8 or not, and the result is a total order (what an
// index needs): a byte that is no UTF-8 sorts after every code point. For
// ASCII texts it is the order of SQLite's NOCASE. Pure, safe from any thread.
//
//   assert(compareWithoutCase("ZÜRICH", "Zürich") == 0);
//   assert(compareWithoutCase("apple", "Banana") < 0);
#pragma once

#include <string_view>

namespace varnock::collation {

// Negative when `a` comes first, zero when they are equal, positive when `b`
// comes first.
int compareWithoutCase(std::string_view a, std::string_view b) noexcept;

}  // namespace varnock::collation
