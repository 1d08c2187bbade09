// SPDX-License-Identifier: MIT
// The type library as MIDL text. Every class, interface, member, argument and
// identifier comes from the catalogue; this file only knows how MIDL spells
// them. Property puts name their value `rhs`; results are the last,
// unnamed [out, retval] parameter.
#include "host/type_library.h"

#include <cstdint>
#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"
#include "varnock/type_library.h"

namespace varnock::host {

namespace {

using catalogue::Argument;
using catalogue::InvokeKind;
using catalogue::Member;
using catalogue::Table;
using catalogue::ValueType;

constexpr std::string_view kIndent = "    ";

// The catalogue writes identifiers in registry form, with braces.
std::string_view bare(std::string_view id) {
  if (id.size() >= 2 && id.front() == '{' && id.back() == '}') return id.substr(1, id.size() - 2);
  return id;
}

std::string hex(std::int32_t id) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08x", static_cast<unsigned>(id));
  return text;
}

// The boundary type of a value; `resultClass` names the interface of a record.
std::string typeName(ValueType type, std::string_view resultClass) {
  switch (type) {
    case ValueType::String:
      return "BSTR";
    case ValueType::Long:
      return "long";
    case ValueType::Boolean:
      return "VARIANT_BOOL";
    case ValueType::Variant:
      return "VARIANT";
    case ValueType::Dictionary:
    case ValueType::Collection:
      return "IDispatch*";
    case ValueType::Record:
      return "_" + std::string(resultClass) + "*";
    case ValueType::None:
      break;
  }
  throw std::logic_error("no boundary type for a member without a value");
}

// A default as MIDL writes it; an automation true is all bits set.
std::string defaultText(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::String: {
      std::string text = "\"";
      for (char c : value.asString()) {
        if (c == '"' || c == '\\') text += '\\';
        text += c;
      }
      return text + "\"";
    }
    case Variant::Type::Boolean:
      return value.asBoolean() ? "-1" : "0";
    case Variant::Type::Integer:
      return std::to_string(value.asInteger());
    case Variant::Type::Long:
      return std::to_string(value.asLong());
    default:
      throw std::logic_error("no MIDL form for this default value");
  }
}

std::string parameter(const Argument& a) {
  std::string text = a.byRef ? "[in, out" : "[in";
  if (a.optional) text += ", optional, defaultvalue(" + defaultText(a.defaultValue) + ")";
  text += "] " + typeName(a.type, {});
  if (a.byRef) text += "*";
  return text + " " + std::string(a.name);
}

std::vector<std::string> parameters(const Member& m) {
  std::vector<std::string> list;
  if (m.kind == InvokeKind::PropertyPut) {
    // The catalogue's single put argument carries the property's value.
    list.push_back("[in] " + typeName(m.arguments.at(0).type, {}) + " rhs");
    return list;
  }
  for (const Argument& a : m.arguments)
    list.push_back(parameter(a));
  if (m.result != ValueType::None) {
    std::string result = "[out, retval] " + typeName(m.result, m.resultClass) + "* ";
    // Collections travel as plain IDispatch; say what the caller receives.
    if (m.result == ValueType::Collection) result += "/* Collection */";
    list.push_back(std::move(result));
  }
  return list;
}

void writeEntry(std::string& out, const Member& m) {
  const std::string entryIndent = std::string(kIndent) + std::string(kIndent);
  out += entryIndent + "[id(" + hex(m.dispatchId) + ")";
  if (m.kind == InvokeKind::PropertyGet) out += ", propget";
  if (m.kind == InvokeKind::PropertyPut) out += ", propput";
  out += "]\n" + entryIndent + "HRESULT " + m.name + "(";
  const std::vector<std::string> list = parameters(m);
  if (list.size() == 1) {
    out += list.front();
  } else {
    // Longer lists get one parameter per line so names and defaults line up.
    for (std::size_t i = 0; i < list.size(); ++i) {
      out += "\n" + entryIndent + std::string(kIndent) + std::string(kIndent) + list[i];
      if (i + 1 < list.size()) out += ",";
    }
  }
  out += ");\n";
}

void writeAttributes(std::string& out, const std::vector<std::string>& attributes) {
  out += std::string(kIndent) + "[\n";
  for (std::size_t i = 0; i < attributes.size(); ++i) {
    out += std::string(kIndent) + std::string(kIndent) + attributes[i];
    out += i + 1 < attributes.size() ? ",\n" : "\n";
  }
  out += std::string(kIndent) + "]\n";
}

void writeInterface(std::string& out, const Table& t) {
  writeAttributes(out, {"odl", "uuid(" + std::string(bare(t.interfaceId)) + ")", "version(1.0)",
                        "hidden", "dual", "nonextensible", "oleautomation"});
  out += std::string(kIndent) + "interface " + t.interfaceName + " : IDispatch {\n";
  for (const Member& m : t.members)
    writeEntry(out, m);
  out += std::string(kIndent) + "};\n\n";
}

void writeCoclass(std::string& out, const Table& t) {
  writeAttributes(out, {"uuid(" + std::string(bare(t.classId)) + ")", "version(1.0)"});
  out += std::string(kIndent) + "coclass " + std::string(t.name) + " {\n";
  out += std::string(kIndent) + std::string(kIndent) + "[default] interface " + t.interfaceName +
         ";\n";
  out += std::string(kIndent) + "};\n";
}

}  // namespace

std::string typeLibraryText() {
  const std::vector<Table>& tables = catalogue::tables();
  std::string out;
  out += "// " + std::string(catalogue::kLibraryName) +
         " type library: one dual interface and one creatable class per table.\n\n";
  out += "[\n";
  out += std::string(kIndent) + "uuid(" + std::string(bare(catalogue::kLibraryId)) + "),\n";
  out += std::string(kIndent) + "version(1.0),\n";
  out += std::string(kIndent) + "lcid(0x0409)\n";
  out += "]\n";
  out += "library " + std::string(catalogue::kLibraryName) + "\n{\n";
  out += std::string(kIndent) + "importlib(\"stdole2.tlb\");\n\n";
  // Record results name other classes' interfaces, so all are declared first.
  for (const Table& t : tables)
    out += std::string(kIndent) + "interface " + t.interfaceName + ";\n";
  for (const Table& t : tables) {
    out += "\n";
    writeInterface(out, t);
    writeCoclass(out, t);
  }
  out += "};\n";
  return out;
}

}  // namespace varnock::host

namespace varnock {

std::string typeLibraryText() {
  return host::typeLibraryText();
}

}  // namespace varnock
