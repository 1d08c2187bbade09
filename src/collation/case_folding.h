// SPDX-License-Identifier: MIT
// Unicode simple case folding: one code point to one, so that letters that
// differ only in case fold to the same code point ('Ü' and 'ü' to 'ü', 'K'
// and the Kelvin sign to 'k'). Accents stay: 'é' does not fold to 'e'.
// Pure functions, safe from any thread.
//
//   assert(foldCase(U'Ü') == U'ü');
#pragma once

#include <array>

namespace varnock::collation {

// ASCII folded by a table: the common case, in the comparison's inner loop.
inline constexpr std::array<unsigned char, 128> kAsciiFolded = [] {
  std::array<unsigned char, 128> folded{};
  for (unsigned c = 0; c < 128; ++c)
    folded[c] = static_cast<unsigned char>(c >= 'A' && c <= 'Z' ? c + ('a' - 'A') : c);
  return folded;
}();

// Beyond ASCII: a search of the generated runs.
char32_t foldBeyondAscii(char32_t unit) noexcept;

// The folded form of a unit (see utf8_units.h); units that are no letter
// with a case, and bytes that are no UTF-8, fold to themselves.
inline char32_t foldCase(char32_t unit) noexcept {
  if (unit < 0x80) return kAsciiFolded[unit];
  return foldBeyondAscii(unit);
}

}  // namespace varnock::collation
