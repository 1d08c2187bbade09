// SPDX-License-Identifier: MIT
// Conversions between Variant types, as an automation runtime performs them,
// and the numeric and date tests that the value checks apply. All of them
// follow one fixed regional rule, en-US (the register's "us_english"):
//   numbers  "1,234.5", " -1e3 ", "+.5"  (blanks around, sign, "," thousands
//            groups of three, "." decimals, exponent; nothing else)
//   dates    "5/4/2000", "5/4/00", "2000-5-4", "2000/5/4", "May 4, 2000",
//            "4 May 2000", "may 4 2000", with an optional time "13:45",
//            "1:45:00 PM", "13:45:00PM", or "2000-05-04T13:45:00"; a time
//            alone is a time on day 0. Two-digit years 00-29 are 20xx and
//            30-99 are 19xx; years run from 100 to 9999; only real calendar
//            dates and times (0-23 h, 0-59 min, 0-59 s) are accepted.
// Every failure raises AutomationError: 94 for Null, 13 for a value that does
// not convert, 6 for a toLong or toDate result out of range. Stateless and
// thread-safe.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "varnock/export.h"
#include "varnock/variant.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

// The ordinary text form: "True"/"False", plain decimal integers, doubles with
// up to 15 significant digits ("1E-05", "1.5E+20"), dates as "5/4/2000 1:45:00
// PM" (the date alone at midnight, the time alone on day 0). Empty gives "".
std::string toText(const Variant& value);
bool toBoolean(const Variant& value);
double toNumber(const Variant& value);
// Rounded half to even; outside the 32-bit range raises overflow (6).
std::int32_t toLong(const Variant& value);
// A valid date as it is (one that is not raises 13); text through parseDate;
// any other value through toNumber, its number taken as the date's serial:
// NaN raises 13, a serial outside the calendar (Date::isValid) raises 6.
Date toDate(const Variant& value);

// The numeric test: numbers, booleans and Empty, or text that parseNumber
// accepts in full. Never raises.
bool isNumeric(const Variant& value);
// The date test: valid dates (Date::isValid), or text that parseDate
// accepts. Never raises.
bool isDate(const Variant& value);

// The parsers behind the tests and conversions; nullopt when the text is not
// a number or a date under the rule above.
std::optional<double> parseNumber(std::string_view text);
std::optional<Date> parseDate(std::string_view text);

// The text forms used by toText, exposed for the SQL and display layers.
std::string formatDouble(double value);
std::string formatDate(Date value);

// Names (classes, members, arguments, columns) compare as the register
// compares them: ASCII letters without regard to case, everything else exactly.
bool equalsIgnoringCase(std::string_view a, std::string_view b) noexcept;

// The text as a JSON string literal, quotes included, as the SQL trace and the
// event log file write texts: bytes that are not well-formed UTF-8 become
// U+FFFD, so the result is always valid JSON.
std::string jsonQuoted(std::string_view text);

}  // namespace varnock
VARNOCK_PUBLIC_END
