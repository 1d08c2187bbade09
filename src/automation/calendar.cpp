// SPDX-License-Identifier: MIT
#include "automation/calendar.h"

namespace varnock::calendar {

namespace {

// Days from 1 January 1970 (H. Hinnant's days_from_civil).
std::int64_t daysFromEpoch(std::int64_t y, unsigned m, unsigned d) noexcept {
  y -= m <= 2;
  const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
  const auto yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<std::int64_t>(doe) - 719468;
}

constexpr std::int64_t kDayZeroFromEpoch = -25569;  // 30 December 1899

}  // namespace

std::int64_t dayNumber(int year, int month, int day) noexcept {
  return daysFromEpoch(year, static_cast<unsigned>(month), static_cast<unsigned>(day)) -
         kDayZeroFromEpoch;
}

YearMonthDay fromDayNumber(std::int64_t days) noexcept {
  const std::int64_t z = days + kDayZeroFromEpoch + 719468;
  const std::int64_t era = (z >= 0 ? z : z - 146096) / 146097;
  const auto doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  const unsigned d = doy - (153 * mp + 2) / 5 + 1;
  const unsigned m = mp < 10 ? mp + 3 : mp - 9;
  const std::int64_t y = static_cast<std::int64_t>(yoe) + era * 400 + (m <= 2);
  return {static_cast<int>(y), static_cast<int>(m), static_cast<int>(d)};
}

int daysInMonth(int year, int month) noexcept {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month == 2) {
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return leap ? 29 : 28;
  }
  return kDays[month - 1];
}

bool isValidDate(int year, int month, int day) noexcept {
  return month >= 1 && month <= 12 && day >= 1 && day <= daysInMonth(year, month);
}

double serialOf(std::int64_t day, int secondsOfDay) noexcept {
  const double fraction = secondsOfDay / 86400.0;
  const auto whole = static_cast<double>(day);
  return day < 0 ? whole - fraction : whole + fraction;
}

}  // namespace varnock::calendar
