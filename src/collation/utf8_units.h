// SPDX-License-Identifier: MIT
// Text as a sequence of units, for comparing and matching texts whatever
// bytes they hold: a well-formed UTF-8 sequence is one unit, its code point;
// any other byte is a unit of its own, kInvalidByteBase plus the byte, above
// every code point. Decoding is a function of the bytes read from the start,
// so two texts always split the same way and comparisons stay an order.
// Pure functions, safe from any thread.
#pragma once

#include <cstddef>
#include <string_view>

namespace varnock::collation {

inline constexpr char32_t kInvalidByteBase = 0x110000;

namespace detail {

constexpr bool isContinuation(unsigned char byte) noexcept {
  return (byte & 0xC0) == 0x80;
}

}  // namespace detail

// The unit that starts at text[at], and moves `at` past it. `at` must be
// below text.size(). Overlong forms, surrogates and code points past
// U+10FFFF are not well formed.
constexpr char32_t nextUnit(std::string_view text, std::size_t& at) noexcept {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  if (lead < 0x80) {
    ++at;
    return lead;
  }
  const std::size_t left = text.size() - at;
  // The bounds of the second byte depend on the lead (RFC 3629's table);
  // the others are plain continuation bytes.
  std::size_t length = 0;
  unsigned char low = 0x80, high = 0xBF;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;
    if (lead == 0xED) high = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;
  }
  if (length == 0 || left < length || byte(at + 1) < low || byte(at + 1) > high) {
    ++at;
    return kInvalidByteBase + lead;
  }
  char32_t code = lead & (0xFF >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    if (!detail::isContinuation(byte(at + i))) {
      ++at;
      return kInvalidByteBase + lead;
    }
    code = (code << 6) | (byte(at + i) & 0x3F);
  }
  at += length;
  return code;
}

}  // namespace varnock::collation
