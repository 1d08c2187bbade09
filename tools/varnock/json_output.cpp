// SPDX-License-Identifier: MIT
#include "json_output.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "error_report.h"
#include "object_fields.h"
#include "varnock/conversions.h"

namespace varnock::cli {

namespace {

// The length of the well-formed UTF-8 sequence at `at`, or 0.
std::string number(double value) {
  if (!std::isfinite(value)) return "null";  // JSON has no infinities
  char buffer[32];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value);
  if (error != std::errc()) return "null";
  return std::string(buffer, end);
}

std::string currency(Currency value) {
  const std::int64_t units = value.tenThousandths;
  // Work on the magnitude as unsigned so the most negative amount has one too.
  const std::uint64_t magnitude =
      units < 0 ? 0 - static_cast<std::uint64_t>(units) : static_cast<std::uint64_t>(units);
  std::string text = units < 0 ? "-" : "";
  text += std::to_string(magnitude / 10000);
  const std::uint64_t fraction = magnitude % 10000;
  if (fraction != 0) {
    char digits[8];
    std::snprintf(digits, sizeof digits, ".%04llu", static_cast<unsigned long long>(fraction));
    text += digits;
    while (text.back() == '0')
      text.pop_back();
  }
  return text;
}

std::string isoDate(Date value) {
  const CivilDateTime c = value.civil();
  char text[48];
  std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d", c.year, c.month, c.day, c.hour,
                c.minute, c.second);
  return jsonString(text);
}

std::string jsonObject(const std::vector<NamedValue>& fields) {
  std::string text = "{";
  for (std::size_t i = 0; i < fields.size(); ++i) {
    if (i > 0) text += ", ";
    text += jsonString(fields[i].name) + ": " + jsonValue(fields[i].value);
  }
  return text + "}";
}

std::string jsonObjectValue(const Variant& value) {
  if (!value.asObject()) return "null";  // Nothing
  if (const Collection* collection = collectionOf(value)) {
    std::string text = "[";
    bool first = true;
    for (const Variant& item : *collection) {
      if (!first) text += ", ";
      first = false;
      text += jsonValue(item);
    }
    return text + "]";
  }
  if (auto fields = fieldsOf(value)) return jsonObject(*fields);
  return "{\"object\": " + jsonString(value.asObject()->typeName()) + "}";
}

}  // namespace

std::string jsonString(std::string_view text) {
  return jsonQuoted(text);
}

std::string jsonValue(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
      return "{\"empty\": true}";
    case Variant::Type::Null:
      return "null";
    case Variant::Type::Boolean:
      return value.asBoolean() ? "true" : "false";
    case Variant::Type::Integer:
      return std::to_string(value.asInteger());
    case Variant::Type::Long:
      return std::to_string(value.asLong());
    case Variant::Type::Double:
      return number(value.asDouble());
    case Variant::Type::Currency:
      return currency(value.asCurrency());
    case Variant::Type::Date:
      return isoDate(value.asDate());
    case Variant::Type::String:
      return jsonString(value.asString());
    case Variant::Type::Object:
      return jsonObjectValue(value);
  }
  return "null";
}

void writeJson(std::ostream& out, const CallOutcome& outcome) {
  out << "{\"result\": " << (outcome.result ? jsonValue(*outcome.result) : "null");
  out << ", \"object\": " << (outcome.object ? jsonObject(*outcome.object) : "null");
  out << ", \"byref\": " << jsonObject(outcome.byRef);
  out << ", \"lastError\": " << jsonString(outcome.lastError);
  if (!outcome.refusals.empty()) {
    out << ", \"refused\": [";
    for (std::size_t i = 0; i < outcome.refusals.size(); ++i) {
      const Refusal& r = outcome.refusals[i];
      out << (i > 0 ? ", " : "") << "{\"column\": " << jsonString(r.column)
          << ", \"value\": " << jsonValue(r.value) << ", \"message\": " << jsonString(r.message)
          << "}";
    }
    out << "]";
  }
  out << "}\n";
}

void writeJsonError(std::ostream& out, const AutomationError& error) {
  out << "{\"error\": {\"number\": " << error.number()
      << ", \"hex\": " << jsonString(hexNumber(error.number()))
      << ", \"description\": " << jsonString(error.description())
      << ", \"source\": " << jsonString(error.source()) << "}}\n";
}

}  // namespace varnock::cli
