// SPDX-License-Identifier: MIT
// How the writers turn column values into SQL text: the date text, bits as 1
// or 0, two-digit padding, and the trailing separator cut by a fixed count.
// Texts are quoted, apostrophes doubled, as the statements are joined.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "varnock/variant.h"

namespace varnock::sql {

// "" -> "00", one character -> "0" + it, longer texts unchanged.
std::string twoDigits(std::string_view text);

// The value's text as a concatenation sees it: Null gives "".
std::string textOf(const Variant& value);

// The date text "2000/5/4 13:45:00" ("2000/5/4 13:45:00PM" with the
// meridiem), or nothing for a date of day 0 or earlier. A value that is not
// a date raises type mismatch.
std::optional<std::string> dateText(const Variant& value, bool withMeridiem);

// "1" when the value equals the automation boolean true, otherwise "0".
// Booleans are themselves; numbers and dates equal true only as -1; a text
// is read by its meaning ("True" in any case, or a number equal to -1);
// Empty and everything else are not true.
std::string_view bitText(const Variant& value);

// The text without its last `count` characters; a text shorter than that
// raises "Invalid procedure call or argument" (5).
std::string withoutLast(std::string text, std::size_t count);

}  // namespace varnock::sql
