// SPDX-License-Identifier: MIT
// The command line's value notation: any argument text reads as a value or is
// refused as a usage error, and what it reads as is what the notation says.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "exit_status.h"
#include "fuzz_support.h"
#include "value_notation.h"
#include "varnock/conversions.h"

namespace {

using varnock::Variant;
using varnock::fuzz::check;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > varnock::fuzz::kMaxInputSize) return 0;
  const std::string_view input = varnock::fuzz::textOf(data, size);
  Variant value;
  try {
    value = varnock::cli::parseValue(input);
  } catch (const varnock::cli::UsageError&) {
    // Only a date between #s that does not read, or a number out of range.
    const bool dateNotation = input.size() >= 2 && input.front() == '#' && input.back() == '#';
    const bool numberNotation =
        !input.empty() && input.find_first_not_of("+-0123456789.eE") == std::string_view::npos;
    check(dateNotation || numberNotation, "a refused value is a date or a number", input);
    return 0;
  }
  if (input.starts_with("str:")) {
    check(value == Variant(input.substr(4)), "str: gives the rest exactly", input);
    return 0;
  }
  switch (value.type()) {
    case Variant::Type::Null:
      check(varnock::equalsIgnoringCase(input, "null"), "only null is Null", input);
      break;
    case Variant::Type::Empty:
      check(varnock::equalsIgnoringCase(input, "empty"), "only empty is Empty", input);
      break;
    case Variant::Type::Boolean:
      check(varnock::equalsIgnoringCase(input, value.asBoolean() ? "true" : "false"),
            "only true and false are booleans", input);
      break;
    case Variant::Type::Long:
      check(std::to_string(value.asLong()) == std::to_string(std::stoll(std::string(input))),
            "an integer is the number written", input);
      break;
    case Variant::Type::Double:
      check(std::isfinite(value.asDouble()), "a double is finite", input);
      check(varnock::parseNumber(input) == value.asDouble(),
            "a double is the number the register's rule reads", input);
      break;
    case Variant::Type::Date:
      check(value.asDate().isValid(), "a date lies in the calendar", input);
      check(input.size() >= 2 && input.front() == '#' && input.back() == '#',
            "only #...# is a date", input);
      break;
    case Variant::Type::String:
      check(value == Variant(input), "any other text is the text as written", input);
      break;
    default:
      varnock::fuzz::fail("the notation gives no other type", input);
  }
  return 0;
}
