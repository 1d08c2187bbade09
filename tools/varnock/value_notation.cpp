// SPDX-License-Identifier: MIT
#include "value_notation.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>
#include <system_error>

#include "exit_status.h"
#include "text_util.h"
#include "varnock/conversions.h"

namespace varnock::cli {

namespace {

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

std::size_t digitsFrom(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size() && isDigit(text[end]))
    ++end;
  return end - at;
}

// [+-]digits, nothing else.
bool isInteger(std::string_view text) {
  const std::size_t start = (!text.empty() && (text[0] == '+' || text[0] == '-')) ? 1 : 0;
  return text.size() > start && digitsFrom(text, start) == text.size() - start;
}

// [+-](digits[.digits] | .digits)[(e|E)[+-]digits], nothing else.
bool isDecimal(std::string_view text) {
  std::size_t at = (!text.empty() && (text[0] == '+' || text[0] == '-')) ? 1 : 0;
  const std::size_t whole = digitsFrom(text, at);
  at += whole;
  std::size_t fraction = 0;
  if (at < text.size() && text[at] == '.') {
    fraction = digitsFrom(text, at + 1);
    at += 1 + fraction;
  }
  if (whole == 0 && fraction == 0) return false;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    const std::size_t exponent = digitsFrom(text, at);
    if (exponent == 0) return false;
    at += exponent;
  }
  return at == text.size();
}

double toDouble(std::string_view text) {
  // from_chars takes no leading '+'.
  if (!text.empty() && text[0] == '+') text.remove_prefix(1);
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) {
    throw UsageError("the number " + std::string(text) + " is out of range");
  }
  return value;
}

Variant number(std::string_view text) {
  if (isInteger(text)) {
    std::string_view digits = text;
    if (digits[0] == '+') digits.remove_prefix(1);
    std::int32_t value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error == std::errc() && end == digits.data() + digits.size()) return Variant(value);
  }
  return Variant(toDouble(text));
}

}  // namespace

Variant parseValue(std::string_view text) {
  constexpr std::string_view kTextPrefix = "str:";
  if (text.starts_with(kTextPrefix)) return Variant(text.substr(kTextPrefix.size()));
  if (equalsIgnoringCase(text, "null")) return Variant::null();
  if (equalsIgnoringCase(text, "empty")) return Variant::empty();
  if (equalsIgnoringCase(text, "true")) return Variant(true);
  if (equalsIgnoringCase(text, "false")) return Variant(false);
  if (isInteger(text) || isDecimal(text)) return number(text);
  if (text.size() >= 2 && text.front() == '#' && text.back() == '#') {
    const std::string_view inside = text.substr(1, text.size() - 2);
    if (const auto date = parseDate(inside)) return Variant(*date);
    throw UsageError("#" + std::string(inside) + "# is not a date");
  }
  return Variant(text);
}

}  // namespace varnock::cli
