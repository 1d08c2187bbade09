// SPDX-License-Identifier: MIT
#include "collation/like.h"

#include <cstddef>

#include "collation/case_folding.h"
#include "collation/utf8_units.h"

namespace varnock::collation {

namespace {

// One element of a pattern: a wildcard or a unit to match, already folded.
struct Element {
  enum class Kind { AnyRun, AnyOne, Unit, UnpairedEscape } kind;
  char32_t folded = 0;
};

// The element that starts at pattern[at], and moves `at` past it.
Element nextElement(std::string_view pattern, std::size_t& at, std::optional<char32_t> escape) {
  const char32_t unit = nextUnit(pattern, at);
  if (escape && unit == *escape) {
    if (at == pattern.size()) return {Element::Kind::UnpairedEscape};
    return {Element::Kind::Unit, foldCase(nextUnit(pattern, at))};
  }
  if (unit == '%') return {Element::Kind::AnyRun};
  if (unit == '_') return {Element::Kind::AnyOne};
  return {Element::Kind::Unit, foldCase(unit)};
}

}  // namespace

bool likeMatches(std::string_view pattern, std::string_view text,
                 std::optional<char32_t> escape) noexcept {
  // Greedy matching that returns only to the last "%": a later "%" can take
  // up whatever an earlier one could, so no earlier choice needs revisiting.
  std::size_t p = 0, t = 0;
  bool starSeen = false;
  std::size_t afterStar = 0, starText = 0;  // where to resume after the last "%"
  while (t < text.size()) {
    if (p < pattern.size()) {
      // ASCII on both sides, no wildcard or escape: the common case, by table.
      const auto pc = static_cast<unsigned char>(pattern[p]);
      const auto tc = static_cast<unsigned char>(text[t]);
      if ((pc | tc) < 0x80 && pc != '%' && pc != '_' && (!escape || pc != *escape)) {
        if (kAsciiFolded[pc] == kAsciiFolded[tc]) {
          ++p;
          ++t;
          continue;
        }
      } else {
        std::size_t next = p;
        const Element e = nextElement(pattern, next, escape);
        if (e.kind == Element::Kind::UnpairedEscape) return false;
        if (e.kind == Element::Kind::AnyRun) {
          starSeen = true;
          afterStar = p = next;
          starText = t;
          continue;
        }
        std::size_t nextText = t;
        const char32_t unit = nextUnit(text, nextText);
        if (e.kind == Element::Kind::AnyOne || e.folded == foldCase(unit)) {
          p = next;
          t = nextText;
          continue;
        }
      }
    }
    if (!starSeen) return false;
    // The last "%" takes one unit more, and matching resumes after it.
    nextUnit(text, starText);
    t = starText;
    p = afterStar;
  }
  // The text is used up: what is left of the pattern must match nothing.
  while (p < pattern.size()) {
    if (nextElement(pattern, p, escape).kind != Element::Kind::AnyRun) return false;
  }
  return true;
}

std::optional<char32_t> escapeUnit(std::string_view text) noexcept {
  if (text.empty()) return std::nullopt;
  std::size_t at = 0;
  const char32_t unit = nextUnit(text, at);
  if (at != text.size()) return std::nullopt;
  return unit;
}

}  // namespace varnock::collation
