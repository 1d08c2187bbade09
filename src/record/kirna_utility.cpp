// SPDX-License-Identifier: MIT
#include "record/kirna_utility.h"

#include <string>

#include "automation/text.h"
#include "eventLog/event_log.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"

namespace varnock::KIRNA_utility {

namespace {

using enum TypeClass;

struct KnownType {
  std::string_view name;
  TypeClass typeClass;
};

// In the order in which a name is compared; the first equal name decides.
constexpr KnownType kKnownTypes[] = {
    {"bit", Boolean},      {"int", Numeric},
    {"smallint", Numeric}, {"tinyint", Numeric},
    {"decimal", Numeric},  {"numeric", Numeric},
    {"money", Numeric},    {"smallmoney", Numeric},
    {"float", Numeric},    {"real", Numeric},
    {"datetime", Date},    {"smalldatetime", Date},
    {"timestamp", Date},   {"uniqueidentifier", Identifier},
    {"char", Text},        {"varchar", Text},
    {"text", Text},        {"nchar", Text},
    {"nvarchar", Text},    {"ntext", Text},
};

// InStr from position 1: 1-based position of the first occurrence, 0 when
// absent or when the text is empty.
std::size_t inStr(const std::string& text, const std::string& search) {
  if (text.empty()) return 0;
  const std::size_t at = text.find(search);
  return at == std::string::npos ? 0 : at + 1;
}

}  // namespace

TypeClass classify(std::string_view sqlTypeName) {
  if (sqlTypeName.size() > 16) return Unknown;  // longer than any known name
  const std::string name = lowerCase(sqlTypeName);
  for (const KnownType& known : kKnownTypes) {
    if (known.name == name) return known.typeClass;
  }
  return Unknown;
}

bool passes(TypeClass typeClass, const Variant& value) {
  switch (typeClass) {
    case Boolean:
      return IsBooleanValue(value);
    case Numeric:
      return isNumeric(value);
    case Date:
      return isDate(value);
    case Identifier:
      return IsGuidValue(value);
    case Text:
      return true;
    case Unknown:
      return false;
  }
  return false;
}

bool IsValidForSqlType(const Variant& value, const Variant& sqlTypeName) {
  if (!sqlTypeName.isString()) return false;
  return passes(classify(sqlTypeName.asString()), value);
}

bool IsBooleanValue(const Variant& value) {
  try {
    static_cast<void>(toBoolean(value));
    return true;
  } catch (const AutomationError&) {
    return false;
  }
}

bool IsGuidValue(const Variant& value) {
  if (value.isString()) {
    const std::string& text = value.asString();
    return !text.empty() && text.front() == '{' && text.back() == '}';
  }
  try {
    const std::string text = toText(value);
    return !text.empty() && text.front() == '{' && text.back() == '}';
  } catch (const AutomationError&) {
    return false;
  }
}

std::int32_t FindItem(const Variant& list, const Variant& item, const Variant& delimiter,
                      const Variant& compareMode) {
  try {
    const std::int32_t mode = toLong(compareMode);
    if (mode != 0 && mode != 1)
      throw AutomationError::runtime(AutomationError::kInvalidProcedureCall);
    std::string haystack = toText(list);
    std::string needle = toText(item);
    std::string separator = toText(delimiter);
    if (mode == 1) {
      haystack = lowerCase(haystack);
      needle = lowerCase(needle);
      separator = lowerCase(separator);
    }
    if (const std::size_t p = inStr(haystack, separator + needle + separator); p > 0) {
      return static_cast<std::int32_t>(p);
    }
    if (inStr(haystack, needle + separator) == 1) return 1;
    // Only the first occurrence counts, and it must end the list.
    const std::string tail = separator + needle;
    const std::size_t p = inStr(haystack, tail);
    return p + tail.size() - 1 == haystack.size() ? static_cast<std::int32_t>(p) : 0;
  } catch (const AutomationError& e) {
    eventLog::ReportDataError(e.number(), "FindItem", e.description() + "[" + e.source() + "]");
    return 0;
  }
}

}  // namespace varnock::KIRNA_utility
