// SPDX-License-Identifier: MIT
#include "varnock/variant.h"

#include <cmath>

#include "automation/calendar.h"
#include "varnock/automation_error.h"

namespace varnock {

Currency Currency::fromDouble(double value) {
  const double scaled = std::nearbyint(value * 10000.0);
  if (!(scaled >= -9.2233720368547e18 && scaled <= 9.2233720368547e18)) {
    throw AutomationError::runtime(AutomationError::kOverflow);
  }
  return Currency{static_cast<std::int64_t>(scaled)};
}

Date Date::fromCivil(const CivilDateTime& c) {
  const std::int64_t day = calendar::dayNumber(c.year, c.month, c.day);
  return Date{calendar::serialOf(day, c.hour * 3600 + c.minute * 60 + c.second)};
}

namespace {

// The calendar's instants: 1/1/100 is day -657434 (its times count down
// towards -657435), and 12/31/9999 is day 2958465, which ends at 2958466.
constexpr double kFirstSerialBound = -657435.0;
constexpr double kLastSerialBound = 2958466.0;
// The serials the calendar arithmetic can take without overflow, far beyond
// what any date text or conversion makes.
constexpr double kArithmeticBound = 1e7;

}  // namespace

bool Date::isValid() const noexcept {
  return serial > kFirstSerialBound && serial < kLastSerialBound;  // false for NaN
}

CivilDateTime Date::civil() const {
  if (!(std::fabs(serial) < kArithmeticBound)) {  // NaN and the infinities too
    throw AutomationError::runtime(AutomationError::kTypeMismatch);
  }
  const double whole = std::trunc(serial);
  auto day = static_cast<std::int64_t>(whole);
  auto seconds = static_cast<int>(std::llround(std::fabs(serial - whole) * 86400.0));
  if (seconds >= 86400) {  // rounding reached the next midnight
    if (isValid() && !Date{serial + 1.0 / 86400}.isValid()) {
      seconds = 86399;  // the calendar's last second: no rounding past its end
    } else {
      seconds -= 86400;
      ++day;
    }
  }
  const calendar::YearMonthDay ymd = calendar::fromDayNumber(day);
  return {ymd.year, ymd.month, ymd.day, seconds / 3600, seconds / 60 % 60, seconds % 60};
}

Variant Variant::null() noexcept {
  Variant v;
  v.value_.emplace<kNull>();
  return v;
}

Variant::Type Variant::type() const noexcept {
  static constexpr Type kTypes[] = {Type::Empty,  Type::Null,   Type::Boolean,  Type::Integer,
                                    Type::Long,   Type::Double, Type::Currency, Type::Date,
                                    Type::String, Type::Object};
  return kTypes[value_.index()];
}

bool Variant::isNumber() const noexcept {
  switch (value_.index()) {
    case kInteger:
    case kLong:
    case kDouble:
    case kCurrency:
      return true;
    default:
      return false;
  }
}

namespace {

template <class T, class Storage>
const T& typed(const Storage& storage) {
  if (const T* p = std::get_if<T>(&storage)) return *p;
  throw AutomationError::runtime(AutomationError::kTypeMismatch);
}

}  // namespace

bool Variant::asBoolean() const {
  return typed<bool>(value_);
}
std::int16_t Variant::asInteger() const {
  return typed<std::int16_t>(value_);
}
std::int32_t Variant::asLong() const {
  return typed<std::int32_t>(value_);
}
double Variant::asDouble() const {
  return typed<double>(value_);
}
Currency Variant::asCurrency() const {
  return typed<Currency>(value_);
}
Date Variant::asDate() const {
  return typed<Date>(value_);
}
const std::string& Variant::asString() const {
  return typed<std::string>(value_);
}
const std::shared_ptr<Object>& Variant::asObject() const {
  return typed<std::shared_ptr<Object>>(value_);
}

}  // namespace varnock
