// SPDX-License-Identifier: MIT
// Proleptic Gregorian calendar arithmetic shared by the date parser, the date
// text form and Date itself. Day numbers count from 30 December 1899 (day 0).
#pragma once

#include <cstdint>

namespace varnock::calendar {

struct YearMonthDay {
  int year, month, day;
};

std::int64_t dayNumber(int year, int month, int day) noexcept;
YearMonthDay fromDayNumber(std::int64_t days) noexcept;
int daysInMonth(int year, int month) noexcept;
bool isValidDate(int year, int month, int day) noexcept;

// The serial of a whole day plus a time of day given in seconds (0..86399),
// encoded as OLE dates are: before day 0 the fraction is subtracted.
double serialOf(std::int64_t day, int secondsOfDay) noexcept;

}  // namespace varnock::calendar
