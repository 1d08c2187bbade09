// SPDX-License-Identifier: MIT
// SQL's LIKE without regard to case, beyond ASCII: "%" matches any run of
// units (none included), "_" exactly one, and every other unit itself or
// another of the same folded form (see case_folding.h, utf8_units.h). An
// escape unit, when given, makes the unit after it literal, "%", "_" and the
// escape itself included, and takes precedence over their wildcard meaning;
// a pattern that ends in an unpaired escape matches nothing. This is SQLite's
// LIKE with its ASCII-only folding widened. Pure, safe from any thread.
//
//   assert(likeMatches("zü%", "ZÜRICH"));
//   assert(likeMatches("100!%", "100%", U'!'));
#pragma once

#include <optional>
#include <string_view>

namespace varnock::collation {

// True when `text` matches `pattern`. Time grows with the product of the two
// lengths at worst; the caller bounds the pattern's length.
bool likeMatches(std::string_view pattern, std::string_view text,
                 std::optional<char32_t> escape = std::nullopt) noexcept;

// The unit an ESCAPE text names: its only unit, or nullopt when it holds
// none or several (which SQL refuses as an escape).
std::optional<char32_t> escapeUnit(std::string_view text) noexcept;

}  // namespace varnock::collation
