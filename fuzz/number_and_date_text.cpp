// SPDX-License-Identifier: MIT
// Numbers and dates as text: parseNumber and parseDate on any text, the
// numeric and date tests and the conversions that share their rule, and the
// ordinary text forms read back by the parsers that made their values.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz_support.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"

namespace {

using varnock::Date;
using varnock::Variant;
using varnock::fuzz::check;

void checkNumber(std::string_view input) {
  const Variant asText(input);
  const std::optional<double> number = varnock::parseNumber(input);
  check(varnock::isNumeric(asText) == number.has_value(), "isNumeric agrees with parseNumber",
        input);
  // Blanks around a number are no part of it.
  check(varnock::parseNumber(" \t" + std::string(input) + "\t ") == number,
        "blanks around a number change nothing", input);
  if (!number) return;
  check(std::isfinite(*number), "a parsed number is finite", input);
  check(varnock::toNumber(asText) == *number, "toNumber reads the text as parseNumber does", input);

  // The ordinary text form keeps 15 significant digits: it reads back to the
  // number within that precision, and the number it reads back to has the
  // same text, so a second round changes nothing.
  const std::string text = varnock::toText(Variant(*number));
  const std::optional<double> back = varnock::parseNumber(text);
  check(back.has_value(), "the text of a parsed number is a number", input);
  check(std::fabs(*back - *number) <= std::fabs(*number) * 1e-14,
        "the text of a parsed number reads back to that number", input);
  check(varnock::toText(Variant(*back)) == text, "the text of a number is stable", input);
}

void checkDate(std::string_view input) {
  const Variant asText(input);
  const std::optional<Date> date = varnock::parseDate(input);
  check(varnock::isDate(asText) == date.has_value(), "isDate agrees with parseDate", input);
  if (!date) return;
  check(date->isValid(), "a parsed date lies in the calendar", input);
  check(varnock::toDate(asText) == *date, "toDate reads the text as parseDate does", input);
  // A text names whole seconds, so the calendar fields give the date back.
  check(Date::fromCivil(date->civil()) == *date, "a parsed date is its calendar fields", input);

  const std::string text = varnock::formatDate(*date);
  const std::optional<Date> back = varnock::parseDate(text);
  check(back.has_value(), "the text of a parsed date is a date", input);
  check(*back == *date, "the text of a parsed date reads back to that date", input);
  check(back->civil() == date->civil(), "a date read back has the same calendar fields", input);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > varnock::fuzz::kMaxInputSize) return 0;
  const std::string_view input = varnock::fuzz::textOf(data, size);
  checkNumber(input);
  checkDate(input);
  return 0;
}
