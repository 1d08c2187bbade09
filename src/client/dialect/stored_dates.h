// SPDX-License-Identifier: MIT
// Dates as the register keeps them. A smalldatetime holds whole minutes from
// 1 January 1900 to 6 June 2079; the register stores one as the text
// 'YYYY-MM-DD HH:MM:00', which sorts and compares in date order and which the
// sqlite3 shell and SQLite's own date functions read as they are.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "varnock/variant.h"

namespace varnock::client::dialect {

// The stored text of a date written the way SQL Server reads a character
// string into a smalldatetime: any en-US form that parseDate accepts, or
// 'YYYYMMDD'; a time alone falls on 1 January 1900, an empty text is that
// day's midnight; seconds round to the nearest minute, 30 seconds upwards.
// Raises kCommandFailed for a text that is not a date, or one out of range.
std::string storedDateText(std::string_view text);

// The date a stored text stands for; nullopt when it is not a date.
std::optional<Date> storedDate(std::string_view text);

}  // namespace varnock::client::dialect
