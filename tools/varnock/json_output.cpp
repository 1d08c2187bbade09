#include "json_output.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "error_report.h"
#include "object_fields.h"

namespace varnock::cli {

namespace {

// The length of the well-formed UTF-8 sequence at `at`, or 0.
std::size_t sequenceLength(std::string_view text, std::size_t at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  std::size_t length = 0;
  unsigned char low = 0x80, high = 0xBF;  // the range of the second byte
  if (lead < 0x80) return 1;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    if (lead == 0xE0) low = 0xA0;   // no overlong forms
    if (lead == 0xED) high = 0x9F;  // no surrogates
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    if (lead == 0xF0) low = 0x90;
    if (lead == 0xF4) high = 0x8F;  // nothing past U+10FFFF
  } else {
    return 0;
  }
  if (at + length > text.size()) return 0;
  if (byte(at + 1) < low || byte(at + 1) > high) return 0;
  for (std::size_t i = 2; i < length; ++i) {
    if (byte(at + i) < 0x80 || byte(at + i) > 0xBF) return 0;
  }
  return length;
}

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
  std::string out = "\"";
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = sequenceLength(text, at);
    if (length == 0) {
      out += "\\ufffd";
      ++at;
      continue;
    }
    const char c = text[at];
    if (length > 1) {
      out.append(text.substr(at, length));
    } else if (c == '"' || c == '\\') {
      out += '\\';
      out += c;
    } else if (c == '\n') {
      out += "\\n";
    } else if (c == '\r') {
      out += "\\r";
    } else if (c == '\t') {
      out += "\\t";
    } else if (static_cast<unsigned char>(c) < 0x20) {
      char code[8];
      std::snprintf(code, sizeof code, "\\u%04x",
                    static_cast<unsigned>(static_cast<unsigned char>(c)));
      out += code;
    } else {
      out += c;
    }
    at += length;
  }
  return out + "\"";
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
