// SPDX-License-Identifier: MIT
#include "sql/literals.h"

#include "automation/text.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"

namespace varnock::sql {

std::string twoDigits(std::string_view text) {
  if (text.empty()) return "00";
  if (text.size() == 1) return "0" + std::string(text);
  return std::string(text);
}

std::string textOf(const Variant& value) {
  return value.isNull() ? std::string() : toText(value);
}

std::optional<std::string> dateText(const Variant& value, bool withMeridiem) {
  const Date date = toDate(value);
  if (!(date.serial > 0)) return std::nullopt;
  const CivilDateTime c = date.civil();
  std::string text = std::to_string(c.year) + "/" + std::to_string(c.month) + "/" +
                     std::to_string(c.day) + " " + twoDigits(std::to_string(c.hour)) + ":" +
                     twoDigits(std::to_string(c.minute)) + ":" +
                     twoDigits(std::to_string(c.second));
  if (withMeridiem) text.append(c.hour < 12 ? "AM" : "PM");
  return text;
}

std::string_view bitText(const Variant& value) {
  bool isTrue = false;
  switch (value.type()) {
    case Variant::Type::Boolean:
      isTrue = value.asBoolean();
      break;
    case Variant::Type::String: {
      const std::string_view text = trimBlanks(value.asString());
      if (equalsIgnoringCase(text, "true")) {
        isTrue = true;
      } else if (const auto number = parseNumber(text)) {
        isTrue = *number == -1.0;
      }
      break;
    }
    case Variant::Type::Integer:
    case Variant::Type::Long:
    case Variant::Type::Double:
    case Variant::Type::Currency:
    case Variant::Type::Date:
      isTrue = toNumber(value) == -1.0;
      break;
    default:
      break;
  }
  return isTrue ? "1" : "0";
}

std::string withoutLast(std::string text, std::size_t count) {
  if (count > text.size()) throw AutomationError::runtime(AutomationError::kInvalidProcedureCall);
  text.resize(text.size() - count);
  return text;
}

}  // namespace varnock::sql
