// SPDX-License-Identifier: MIT
// The register's text comparison and LIKE on any bytes: the input is split
// into three texts. The comparison must be an order (reflexive,
// antisymmetric, transitive) that agrees with comparing the folded units one
// by one; LIKE must find a text in itself, and, for a pattern without
// wildcards, agree with the comparison. Reading past a text's end is caught
// by AddressSanitizer.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "collation/case_folding.h"
#include "collation/compare.h"
#include "collation/like.h"
#include "collation/utf8_units.h"
#include "fuzz_support.h"

namespace {

using varnock::fuzz::check;
namespace collation = varnock::collation;

int sign(int value) {
  return (value > 0) - (value < 0);
}

std::vector<char32_t> foldedUnits(std::string_view text) {
  std::vector<char32_t> units;
  for (std::size_t at = 0; at < text.size();)
    units.push_back(collation::foldCase(collation::nextUnit(text, at)));
  return units;
}

// The order as the folded units give it, one at a time.
int byFoldedUnits(std::string_view a, std::string_view b) {
  const std::vector<char32_t> x = foldedUnits(a), y = foldedUnits(b);
  for (std::size_t i = 0; i < x.size() && i < y.size(); ++i) {
    if (x[i] != y[i]) return x[i] < y[i] ? -1 : 1;
  }
  return sign(static_cast<int>(x.size()) - static_cast<int>(y.size()));
}

bool hasWildcards(std::string_view text) {
  return text.find_first_of("%_") != std::string_view::npos;
}

// Every unit of `text` after the escape unit \x01: a pattern that matches
// `text` literally.
std::string escaped(std::string_view text) {
  std::string pattern;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    collation::nextUnit(text, at);
    pattern += '\x01';
    pattern += text.substr(start, at - start);
  }
  return pattern;
}

// ASCII letters in the other case; nothing else changes, so the units stay.
std::string swappedCase(std::string_view text) {
  std::string swapped(text);
  for (char& ch : swapped) {
    if ((ch >= 'a' && ch <= 'z') || (ch >= 'A' && ch <= 'Z')) ch = static_cast<char>(ch ^ 0x20);
  }
  return swapped;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2 || size > varnock::fuzz::kMaxInputSize) return 0;
  const std::string_view input = varnock::fuzz::textOf(data, size);
  // The first two bytes say where the texts end.
  const std::string_view rest = input.substr(2);
  const std::size_t first = static_cast<std::uint8_t>(input[0]) % (rest.size() + 1);
  const std::size_t second =
      first + static_cast<std::uint8_t>(input[1]) % (rest.size() - first + 1);
  const std::string_view a = rest.substr(0, first), b = rest.substr(first, second - first),
                         c = rest.substr(second);

  const int ab = sign(collation::compareWithoutCase(a, b));
  const int ba = sign(collation::compareWithoutCase(b, a));
  const int bc = sign(collation::compareWithoutCase(b, c));
  const int ac = sign(collation::compareWithoutCase(a, c));
  check(collation::compareWithoutCase(a, a) == 0, "a text equals itself", input);
  check(ab == -ba, "swapping the texts swaps the order", input);
  check(!(ab <= 0 && bc <= 0) || ac <= 0, "the order is transitive", input);
  check(!(ab == 0 && bc == 0) || ac == 0, "equality is transitive", input);
  check(ab == byFoldedUnits(a, b), "the order is that of the folded units", input);

  check(collation::likeMatches(escaped(a), a, U'\x01'), "a text escaped matches itself", input);
  check(collation::likeMatches("%", a), "% matches any text", input);
  if (!hasWildcards(a)) {
    check(collation::likeMatches(a, b) == (ab == 0),
          "a pattern without wildcards matches the texts equal to it", input);
    check(collation::likeMatches("%" + std::string(a) + "%", "x" + std::string(a) + "x"),
          "a text is found inside a longer one", input);
  }
  // Any pattern, any escape: the case of the text's ASCII letters is not seen.
  const std::optional<char32_t> escape = collation::escapeUnit(c);
  check(collation::likeMatches(a, b, escape) == collation::likeMatches(a, swappedCase(b), escape),
        "LIKE does not see the case of the text's letters", input);
  return 0;
}
