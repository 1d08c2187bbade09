// SPDX-License-Identifier: MIT
#include "collation/compare.h"

#include <algorithm>
#include <cstddef>

#include "collation/case_folding.h"
#include "collation/utf8_units.h"

namespace varnock::collation {

int compareWithoutCase(std::string_view a, std::string_view b) noexcept {
  // ASCII first, a byte at a time: an ASCII byte is always a unit of its own,
  // so where this loop stops both texts are at the start of a unit.
  const std::size_t common = std::min(a.size(), b.size());
  std::size_t at = 0;
  for (; at < common; ++at) {
    const auto x = static_cast<unsigned char>(a[at]);
    const auto y = static_cast<unsigned char>(b[at]);
    if ((x | y) >= 0x80) break;
    if (x == y) continue;
    const int difference = kAsciiFolded[x] - kAsciiFolded[y];
    if (difference != 0) return difference;
  }
  std::size_t atA = at, atB = at;
  while (atA < a.size() && atB < b.size()) {
    const char32_t fx = foldCase(nextUnit(a, atA));
    const char32_t fy = foldCase(nextUnit(b, atB));
    if (fx != fy) return fx < fy ? -1 : 1;
  }
  return static_cast<int>(atA < a.size()) - static_cast<int>(atB < b.size());
}

}  // namespace varnock::collation
