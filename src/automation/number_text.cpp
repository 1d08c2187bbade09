// SPDX-License-Identifier: MIT
// The en-US number rule: [blanks][sign]digits[,ddd...][.digits][(E|e)[sign]digits][blanks].
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "varnock/conversions.h"

namespace varnock {

namespace {

bool isBlank(char c) {
  return c == ' ' || c == '\t';
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

}  // namespace

std::optional<double> parseNumber(std::string_view text) {
  std::size_t begin = 0, end = text.size();
  while (begin < end && isBlank(text[begin]))
    ++begin;
  while (end > begin && isBlank(text[end - 1]))
    --end;
  const std::string_view s = text.substr(begin, end - begin);

  // Digits are copied without thousands separators into a buffer for
  // from_chars; a number too long for it is still checked, then parsed apart.
  std::array<char, 64> buffer;
  std::size_t used = 0;
  bool overflowed = false;
  auto keep = [&](char c) {
    if (used < buffer.size()) {
      buffer[used++] = c;
    } else {
      overflowed = true;
    }
  };

  std::size_t i = 0;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) {
    if (s[i] == '-') keep('-');
    ++i;
  }
  std::size_t mantissaDigits = 0;
  std::size_t groupDigits = 0;  // digits since the start or the last ','
  bool grouped = false;
  for (; i < s.size(); ++i) {
    if (isDigit(s[i])) {
      keep(s[i]);
      ++mantissaDigits;
      ++groupDigits;
    } else if (s[i] == ',') {
      // The first group holds 1 to 3 digits, every later group exactly 3.
      if (grouped ? groupDigits != 3 : (groupDigits == 0 || groupDigits > 3)) return std::nullopt;
      grouped = true;
      groupDigits = 0;
    } else {
      break;
    }
  }
  if (grouped && groupDigits != 3) return std::nullopt;
  if (i < s.size() && s[i] == '.') {
    keep('.');
    for (++i; i < s.size() && isDigit(s[i]); ++i) {
      keep(s[i]);
      ++mantissaDigits;
    }
  }
  if (mantissaDigits == 0) return std::nullopt;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    keep('e');
    ++i;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) keep(s[i++]);
    std::size_t exponentDigits = 0;
    for (; i < s.size() && isDigit(s[i]); ++i, ++exponentDigits)
      keep(s[i]);
    if (exponentDigits == 0) return std::nullopt;
  }
  if (i != s.size()) return std::nullopt;

  double value = 0.0;
  if (overflowed) {
    std::string copy;
    for (char c : s) {
      if (c != ',' && c != '+') copy.push_back(c == 'E' ? 'e' : c);
    }
    auto [ptr, ec] = std::from_chars(copy.data(), copy.data() + copy.size(), value);
    if (ec != std::errc() || ptr != copy.data() + copy.size()) return std::nullopt;
  } else {
    auto [ptr, ec] = std::from_chars(buffer.data(), buffer.data() + used, value);
    if (ec != std::errc() || ptr != buffer.data() + used) return std::nullopt;
  }
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

std::string formatDouble(double value) {
  if (value == 0.0) return "0";  // also turns -0 into "0"
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value > 0 ? "Infinity" : "-Infinity";
  // %G with 15 digits: exponent form below 1E-4 and from 1E+15, trailing
  // zeros dropped, a two-digit exponent at least, as "1E-05" and "1.5E+20".
  char text[32];
  std::snprintf(text, sizeof text, "%.15G", value);
  return text;
}

}  // namespace varnock
