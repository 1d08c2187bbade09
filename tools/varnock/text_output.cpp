// SPDX-License-Identifier: MIT
#include "text_output.h"

#include <algorithm>

#include "object_fields.h"
#include "text_util.h"
#include "varnock/conversions.h"

namespace varnock::cli {

namespace {

void pad(std::ostream& out, std::string_view text, std::size_t width) {
  out << text;
  for (std::size_t w = displayWidth(text); w < width; ++w)
    out << ' ';
}

void writeFields(std::ostream& out, const std::vector<NamedValue>& fields) {
  std::size_t width = 0;
  for (const NamedValue& field : fields)
    width = std::max(width, displayWidth(field.name));
  for (const NamedValue& field : fields) {
    pad(out, field.name, width + 2);
    out << displayText(field.value) << '\n';
  }
}

void writeTable(std::ostream& out, const Collection& collection) {
  std::vector<std::string> header;
  std::vector<std::vector<std::string>> rows;
  for (const Variant& item : collection) {
    std::vector<std::string> row;
    if (auto fields = fieldsOf(item)) {
      if (header.empty()) {
        for (const NamedValue& field : *fields)
          header.push_back(field.name);
      }
      for (const NamedValue& field : *fields)
        row.push_back(displayText(field.value));
    } else {
      row.push_back(displayText(item));
    }
    rows.push_back(std::move(row));
  }
  if (header.empty() && !rows.empty()) header.push_back("Value");

  std::vector<std::size_t> widths(header.size(), 0);
  auto measure = [&](const std::vector<std::string>& row) {
    for (std::size_t i = 0; i < row.size() && i < widths.size(); ++i)
      widths[i] = std::max(widths[i], displayWidth(row[i]));
  };
  measure(header);
  for (const auto& row : rows)
    measure(row);
  auto writeRow = [&](const std::vector<std::string>& row) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      // The last cell is not padded, so lines carry no trailing blanks.
      if (i + 1 == row.size()) {
        out << row[i];
      } else {
        pad(out, row[i], (i < widths.size() ? widths[i] : 0) + 2);
      }
    }
    out << '\n';
  };
  if (!header.empty()) writeRow(header);
  for (const auto& row : rows)
    writeRow(row);
  out << '(' << rows.size() << (rows.size() == 1 ? " row)" : " rows)") << '\n';
}

// Text in quotes, so a by-reference or refused value shows exactly.
std::string literal(const Variant& value) {
  return value.isString() ? inQuotes(value.asString()) : displayText(value);
}

void writeResult(std::ostream& out, const Variant& result) {
  if (const Collection* collection = collectionOf(result)) {
    writeTable(out, *collection);
  } else if (auto fields = fieldsOf(result)) {
    writeFields(out, *fields);
  } else if (result.isString()) {
    out << result.asString() << '\n';  // as it stands: text results are often meant for pipes
  } else {
    out << displayText(result) << '\n';
  }
}

}  // namespace

std::string displayText(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
      return "Empty";
    case Variant::Type::Null:
      return "Null";
    case Variant::Type::String:
      return oneLine(value.asString());
    case Variant::Type::Object:
      // An object reference that refers to nothing, as a method finding no row gives.
      if (!value.asObject()) return "Nothing";
      return "<" + std::string(value.asObject()->typeName()) + ">";
    default:
      return toText(value);
  }
}

void writeText(std::ostream& out, const CallOutcome& outcome) {
  for (const Refusal& refusal : outcome.refusals) {
    out << "Refused " << refusal.column << " = " << literal(refusal.value) << ": "
        << oneLine(refusal.message) << '\n';
  }
  if (outcome.result) writeResult(out, *outcome.result);
  if (outcome.object) writeFields(out, *outcome.object);
  for (const NamedValue& argument : outcome.byRef) {
    out << argument.name << " = " << literal(argument.value) << '\n';
  }
  if (!outcome.lastError.empty()) out << "Last error: " << oneLine(outcome.lastError) << '\n';
}

}  // namespace varnock::cli
