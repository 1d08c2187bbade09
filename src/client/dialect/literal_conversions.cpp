// SPDX-License-Identifier: MIT
#include "client/dialect/literal_conversions.h"

#include <charconv>
#include <cmath>

#include "automation/text.h"
#include "client/dialect/refusal.h"

namespace varnock::client::dialect {

namespace {

constexpr std::string_view kIntMax = "2147483647";
constexpr std::string_view kIntMinMagnitude = "2147483648";

bool isHex(std::string_view literal) {
  return literal.size() > 1 && literal[0] == '0' && (literal[1] == 'x' || literal[1] == 'X');
}

bool allDigits(std::string_view s) {
  return !s.empty() && s.find_first_not_of("0123456789") == std::string_view::npos;
}

std::string_view withoutLeadingZeros(std::string_view digits) {
  const std::size_t first = digits.find_first_not_of('0');
  return first == std::string_view::npos ? std::string_view("0") : digits.substr(first);
}

// Whether decimal digits, after a sign, fit in an int.
bool fitsInt(std::string_view digits, bool negative) {
  const std::string_view limit = negative ? kIntMinMagnitude : kIntMax;
  return digits.size() < limit.size() || (digits.size() == limit.size() && digits <= limit);
}

std::string signedText(std::string_view digits, bool negative) {
  return (negative && digits != "0" ? "-" : "") + std::string(digits);
}

bool isUnicode(const Token& literal) {
  return !literal.text.empty() && literal.text.front() != '\'';
}

// A whole number with an optional sign and blanks around it: its sign and
// digits without leading zeros; nullopt for anything else.
std::optional<std::pair<bool, std::string_view>> wholeNumber(std::string_view text) {
  text = trimBlanks(text);
  const bool negative = !text.empty() && text.front() == '-';
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  if (!allDigits(text)) return std::nullopt;
  return std::pair{negative, withoutLeadingZeros(text)};
}

}  // namespace

std::optional<std::string> intOfNumber(std::string_view literal, bool negative) {
  if (isHex(literal)) return std::nullopt;
  if (literal.find_first_of("eE") != std::string_view::npos) {
    double value = 0;
    const auto [end, error] =
        std::from_chars(literal.data(), literal.data() + literal.size(), value);
    if (error != std::errc() || end != literal.data() + literal.size()) refuse(kIntOverflowText);
    value = std::trunc(negative ? -value : value);
    if (value < -2147483648.0 || value > 2147483647.0) refuse(kIntOverflowText);
    return std::to_string(static_cast<long long>(value));
  }
  const std::string_view digits = withoutLeadingZeros(literal.substr(0, literal.find('.')));
  if (!fitsInt(digits, negative)) refuse(kIntOverflowText);
  return signedText(digits, negative);
}

std::string intOfString(const Token& literal) {
  const std::string value = stringValue(literal);
  if (trimBlanks(value).empty()) return "0";
  const auto number = wholeNumber(value);
  if (!number) refuse(conversionFailedText(value, isUnicode(literal), "int"));
  if (!fitsInt(number->second, number->first))
    refuse(stringOverflowText(value, isUnicode(literal)));
  return signedText(number->second, number->first);
}

bool bitOfNumber(std::string_view literal) {
  std::string_view mantissa = isHex(literal) ? literal.substr(2) : literal;
  mantissa = mantissa.substr(0, isHex(literal) ? mantissa.size() : mantissa.find_first_of("eE"));
  return mantissa.find_first_not_of("0.") != std::string_view::npos;
}

bool bitOfString(const Token& literal) {
  const std::string value = stringValue(literal);
  const std::string_view text = trimBlanks(value);
  if (text.empty() || equalsIgnoringCase(text, "false")) return false;
  if (equalsIgnoringCase(text, "true")) return true;
  const auto number = wholeNumber(text);
  if (!number) refuse(conversionFailedText(value, isUnicode(literal), "bit"));
  return number->second != "0";
}

}  // namespace varnock::client::dialect
