// SPDX-License-Identifier: MIT
#include "client/dialect/stored_dates.h"

#include <cstdint>
#include <cstdio>

#include "automation/calendar.h"
#include "automation/text.h"
#include "client/client.h"
#include "client/dialect/refusal.h"
#include "varnock/conversions.h"

namespace varnock::client::dialect {

namespace {

constexpr int kMinutesPerDay = 24 * 60;

bool allDigits(std::string_view s) {
  return s.find_first_not_of("0123456789") == std::string_view::npos;
}

// SQL Server's unseparated form "20000504", with or without a time after it,
// in a form parseDate reads.
std::string withSeparatedDate(std::string_view text) {
  const std::string_view date = text.substr(0, text.find(' '));
  if (date.size() != 8 || !allDigits(date)) return std::string(text);
  return std::string(date.substr(0, 4)) + "-" + std::string(date.substr(4, 2)) + "-" +
         std::string(date.substr(6, 2)) + std::string(text.substr(date.size()));
}

std::optional<Date> parsedLikeSqlServer(std::string_view text) {
  if (text.empty()) return Date::fromCivil({1900, 1, 1, 0, 0, 0});
  const std::string separated = withSeparatedDate(text);
  const std::optional<Date> parsed = parseDate(separated);
  if (!parsed) return std::nullopt;
  // A text that still reads as a date once a date is put before it is a time
  // alone; SQL Server puts it on its base day, 1 January 1900.
  if (const std::optional<Date> onBaseDay = parseDate("1/1/1900 " + separated)) return onBaseDay;
  return parsed;
}

}  // namespace

std::string storedDateText(std::string_view text) {
  const std::optional<Date> date = parsedLikeSqlServer(trimBlanks(text));
  if (!date) refuse(kDateConversionText);
  const CivilDateTime c = date->civil();
  if (c.year < 1900) refuse(kDateOutOfRangeText);
  std::int64_t day = calendar::dayNumber(c.year, c.month, c.day);
  int minutes = c.hour * 60 + c.minute + (c.second >= 30 ? 1 : 0);
  if (minutes == kMinutesPerDay) {
    minutes = 0;
    ++day;
  }
  if (day > calendar::dayNumber(2079, 6, 6)) refuse(kDateOutOfRangeText);
  const calendar::YearMonthDay ymd = calendar::fromDayNumber(day);
  char stored[64];
  std::snprintf(stored, sizeof stored, "%04d-%02d-%02d %02d:%02d:00", ymd.year, ymd.month, ymd.day,
                minutes / 60, minutes % 60);
  return stored;
}

std::optional<Date> storedDate(std::string_view text) {
  return parseDate(text);
}

}  // namespace varnock::client::dialect
