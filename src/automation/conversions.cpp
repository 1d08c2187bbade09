// SPDX-License-Identifier: MIT
#include "varnock/conversions.h"

#include <cmath>
#include <cstdio>

#include "automation/json_lines.h"
#include "automation/text.h"
#include "varnock/automation_error.h"

namespace varnock {

namespace {

[[noreturn]] void raise(std::int32_t number) {
  throw AutomationError::runtime(number);
}

std::string formatCurrency(Currency value) {
  const bool negative = value.tenThousandths < 0;
  // Work in unsigned so the most negative amount does not overflow.
  const std::uint64_t magnitude = negative ? 0 - static_cast<std::uint64_t>(value.tenThousandths)
                                           : static_cast<std::uint64_t>(value.tenThousandths);
  char text[40];
  int length = std::snprintf(text, sizeof text, "%s%llu", negative ? "-" : "",
                             static_cast<unsigned long long>(magnitude / 10000));
  if (unsigned fraction = static_cast<unsigned>(magnitude % 10000); fraction != 0) {
    int digits = 4;
    while (fraction % 10 == 0) {
      fraction /= 10;
      --digits;
    }
    length += std::snprintf(text + length, sizeof text - static_cast<std::size_t>(length), ".%0*u",
                            digits, fraction);
  }
  return std::string(text, static_cast<std::size_t>(length));
}

}  // namespace

std::string toText(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
      return {};
    case Variant::Type::Null:
      raise(AutomationError::kInvalidUseOfNull);
    case Variant::Type::Boolean:
      return value.asBoolean() ? "True" : "False";
    case Variant::Type::Integer:
      return std::to_string(value.asInteger());
    case Variant::Type::Long:
      return std::to_string(value.asLong());
    case Variant::Type::Double:
      return formatDouble(value.asDouble());
    case Variant::Type::Currency:
      return formatCurrency(value.asCurrency());
    case Variant::Type::Date:
      return formatDate(value.asDate());
    case Variant::Type::String:
      return value.asString();
    case Variant::Type::Object:
      break;
  }
  raise(AutomationError::kTypeMismatch);
}

double toNumber(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
      return 0.0;
    case Variant::Type::Null:
      raise(AutomationError::kInvalidUseOfNull);
    case Variant::Type::Boolean:
      return value.asBoolean() ? -1.0 : 0.0;  // automation true is all bits set
    case Variant::Type::Integer:
      return value.asInteger();
    case Variant::Type::Long:
      return value.asLong();
    case Variant::Type::Double:
      return value.asDouble();
    case Variant::Type::Currency:
      return value.asCurrency().toDouble();
    case Variant::Type::Date:
      return value.asDate().serial;
    case Variant::Type::String:
      if (auto number = parseNumber(value.asString())) return *number;
      break;
    case Variant::Type::Object:
      break;
  }
  raise(AutomationError::kTypeMismatch);
}

std::int32_t toLong(const Variant& value) {
  if (value.type() == Variant::Type::Long) return value.asLong();
  const double rounded = std::nearbyint(toNumber(value));  // half to even
  if (!(rounded >= -2147483648.0 && rounded <= 2147483647.0)) {
    raise(AutomationError::kOverflow);
  }
  return static_cast<std::int32_t>(rounded);
}

bool toBoolean(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Boolean:
      return value.asBoolean();
    case Variant::Type::String: {
      const std::string_view text = trimBlanks(value.asString());
      if (equalsIgnoringCase(text, "true")) return true;
      if (equalsIgnoringCase(text, "false")) return false;
      if (auto number = parseNumber(text)) return *number != 0.0;
      raise(AutomationError::kTypeMismatch);
    }
    default:
      return toNumber(value) != 0.0;
  }
}

Date toDate(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Date:
      if (!value.asDate().isValid()) raise(AutomationError::kTypeMismatch);
      return value.asDate();
    case Variant::Type::String:
      if (auto date = parseDate(value.asString())) return *date;
      raise(AutomationError::kTypeMismatch);
    default: {
      const double serial = toNumber(value);
      if (std::isnan(serial)) raise(AutomationError::kTypeMismatch);
      const Date date{serial};
      if (!date.isValid()) raise(AutomationError::kOverflow);
      return date;
    }
  }
}

bool isNumeric(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
    case Variant::Type::Boolean:
    case Variant::Type::Integer:
    case Variant::Type::Long:
    case Variant::Type::Double:
    case Variant::Type::Currency:
      return true;
    case Variant::Type::String:
      return parseNumber(value.asString()).has_value();
    default:
      return false;
  }
}

bool isDate(const Variant& value) {
  if (value.type() == Variant::Type::Date) return value.asDate().isValid();
  return value.isString() && parseDate(value.asString()).has_value();
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) noexcept {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (lowerCaseOf(a[i]) != lowerCaseOf(b[i])) return false;
  }
  return true;
}

std::string jsonQuoted(std::string_view text) {
  std::string quoted;
  jsonLines::appendString(quoted, text);
  return quoted;
}

}  // namespace varnock
