// SPDX-License-Identifier: MIT
// Writes the record classes from the table catalogue: each class is naming
// only, so everything in it is derived from the catalogue.
// Usage: generate_classes ROOT
//   writes ROOT/include/varnock/<table>.h (the public class declarations),
//   ROOT/include/varnock/varnock.h (the header that includes every public
//   header), ROOT/src/classes/record_classes.cpp (each member handing its
//   call to the generic operation) and ROOT/src/record/new_record.cpp (the
//   factory that makes objects by table name).
// The output is run through clang-format by the check that keeps the
// checked-in files current.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"

namespace {

using varnock::catalogue::Member;
using varnock::catalogue::MemberRole;
using varnock::catalogue::RelationKind;
using varnock::catalogue::Table;

// The header of a table's class, by its name ("ZoneAddress" -> "zone_address").
std::string fileStem(std::string_view name) {
  return varnock::catalogue::table(name).fileStem;
}

// One C++ member function: how it is declared in the class (with defaults),
// how it is defined outside it, and the call it hands its work to.
struct Signature {
  std::string comment;  // one line, or empty
  std::string result;
  std::string name;
  std::vector<std::pair<std::string, std::string>> parameters;  // declaration, default
  std::string body;     // the expression whose value the function returns
  std::string prelude;  // statements before it, or empty
  bool isConst = false;
};

using Parameters = std::vector<std::pair<std::string, std::string>>;

Signature signature(std::string comment, std::string result, std::string name,
                    Parameters parameters, std::string body, std::string prelude = {}) {
  return {std::move(comment),
          std::move(result),
          std::move(name),
          std::move(parameters),
          std::move(body),
          std::move(prelude),
          false};
}

constexpr const char* kLicenceLine = "// SPDX-License-Identifier: MIT\n";
constexpr const char* kWhere = "std::string_view strWhereClause";
constexpr const char* kOrder = "std::string_view strOrderClause";

Parameters clauses() {
  return {{kWhere, "{}"}, {kOrder, "{}"}};
}

// The C++ functions of a data method; none for the members every class
// shares (they come from Record) and for the properties.
std::vector<Signature> functionsOf(const Member& m) {
  const std::string index = std::to_string(int{m.index});
  const std::string collection = "std::shared_ptr<Collection>";
  switch (m.role) {
    case MemberRole::Get:
      return {signature("", "bool", m.name, clauses(),
                        "sql::lookUp(*this, strWhereClause, strOrderClause)")};
    case MemberRole::GetFirst:
      return {signature("", "bool", m.name, clauses(),
                        "sql::loadFirst(*this, strWhereClause, strOrderClause)")};
    case MemberRole::GetLast:
      return {
          signature("Reverses strOrderClause in place, so the caller sees the order used.", "bool",
                    m.name, {{kWhere, ""}, {"std::string& strOrderClause", ""}},
                    "sql::loadLast(*this, strWhereClause, strOrderClause)"),
          signature("", "bool", m.name, clauses(), "sql::loadLast(*this, strWhereClause, order)",
                    "std::string order(strOrderClause);")};
    case MemberRole::GetNext:
    case MemberRole::GetPrevious: {
      auto parameters = clauses();
      parameters.insert(parameters.begin(), {"std::int32_t lngOffset", ""});
      const std::string operation = m.role == MemberRole::GetNext ? "loadNext" : "loadPrevious";
      return {
          signature("", "bool", m.name, parameters,
                    "sql::" + operation + "(*this, lngOffset, strWhereClause, strOrderClause)")};
    }
    case MemberRole::GetEvery: {
      auto parameters = clauses();
      parameters.push_back({"const Variant& lngOffset", "Variant(1)"});
      parameters.push_back({"const Variant& lngNumRecords", "Variant(0)"});
      return {signature("", collection, m.name, parameters,
                        "sql::listEvery(*this, strWhereClause, strOrderClause, lngOffset, "
                        "lngNumRecords)")};
    }
    case MemberRole::CountEvery:
      return {signature("", "std::int32_t", m.name, {{kWhere, "{}"}},
                        "sql::countEvery(*this, strWhereClause)")};
    case MemberRole::Add:
      return {signature("", "bool", m.name, {}, "sql::insertRow(*this)")};
    case MemberRole::Update:
      return {signature("", "bool", m.name, {}, "sql::updateRow(*this)")};
    case MemberRole::Delete:
      return {signature("", "bool", m.name, {{kWhere, "{}"}},
                        "sql::deleteRows(*this, strWhereClause)")};
    case MemberRole::GetParentIn: {
      const std::string parent(m.resultClass);
      return {signature(
          "", "std::shared_ptr<" + parent + ">", m.name, {},
          "std::static_pointer_cast<" + parent + ">(relations::parentIn(*this, " + index + "))")};
    }
    case MemberRole::GetChildrenIn:
      return {
          signature("", collection, m.name, clauses(),
                    "relations::childrenIn(*this, " + index + ", strWhereClause, strOrderClause)")};
    case MemberRole::CountChildrenIn:
      return {signature("", "std::int32_t", m.name, {},
                        "relations::countChildrenIn(*this, " + index + ")")};
    case MemberRole::GetDerivedChildrenIn:
      if (m.arguments.empty()) {
        return {signature("", collection, m.name, {},
                          "relations::derivedChildrenIn(*this, " + index + ", {}, {})")};
      }
      return {signature(
          "", collection, m.name, clauses(),
          "relations::derivedChildrenIn(*this, " + index + ", strWhereClause, strOrderClause)")};
    case MemberRole::CountDerivedChildrenIn:
      return {signature("", "std::int32_t", m.name, clauses(),
                        "relations::countDerivedChildrenIn(*this, " + index +
                            ", strWhereClause, strOrderClause)")};
    default:
      return {};
  }
}

// The column properties, get_X() and put_X(value), with the column's facts.
std::vector<Signature> propertiesOf(const Table& t) {
  std::vector<Signature> properties;
  for (std::size_t i = 0; i < t.columns.size(); ++i) {
    const auto& c = t.columns[i];
    const std::string property(c.property);
    const std::string comment = std::string(c.field) + ": " +
                                std::string(varnock::catalogue::sqlTypeName(c.type)) + ", Null " +
                                (c.nullRefused ? "refused." : "allowed.");
    Signature get = signature(comment, "Variant", "get_" + property, {},
                              "RecordInternal::column(*this, " + std::to_string(i) + ")");
    get.isConst = true;
    properties.push_back(get);
    properties.push_back(
        signature("", "void", "put_" + property, {{"const Variant& value", ""}},
                  "RecordInternal::assign(*this, " + std::to_string(i) + ", value)"));
  }
  return properties;
}

std::string parameterList(const Signature& s, bool withDefaults) {
  std::string text;
  for (const auto& [declaration, defaultValue] : s.parameters) {
    if (!text.empty()) text += ", ";
    text += declaration;
    if (withDefaults && !defaultValue.empty()) text += " = " + defaultValue;
  }
  return text;
}

void declare(std::ostringstream& out, const Signature& s) {
  if (!s.comment.empty()) out << "\n  // " << s.comment << "\n";
  out << "  " << s.result << " " << s.name << "(" << parameterList(s, true) << ")"
      << (s.isConst ? " const" : "") << ";\n";
}

void define(std::ostringstream& out, const Table& t, const Signature& s) {
  out << s.result << " " << t.name << "::" << s.name << "(" << parameterList(s, false) << ")"
      << (s.isConst ? " const" : "") << " {\n";
  if (!s.prelude.empty()) out << "  " << s.prelude << "\n";
  out << "  " << (s.result == "void" ? "" : "return ") << s.body << ";\n}\n";
}

std::vector<Signature> methodsOf(const Table& t) {
  std::vector<Signature> methods;
  for (const Member& m : t.members) {
    for (Signature& s : functionsOf(m))
      methods.push_back(std::move(s));
  }
  return methods;
}

std::string classHeader(const Table& t) {
  std::ostringstream out;
  out << kLicenceLine << "// " << t.name << ": a record object over one row of the register's "
      << t.name << " table: its\n"
      << "// column properties and its data methods, in interface order. Generated\n"
      << "// from the table catalogue by tools/generate_classes.cpp; change the catalogue\n"
      << "// or the generator, not this file.\n"
      << "#pragma once\n\n"
      << "#include <cstdint>\n"
      << "#include <memory>\n"
      << "#include <string>\n"
      << "#include <string_view>\n\n"
      << "#include \"varnock/collection.h\"\n"
      << "#include \"varnock/export.h\"\n"
      << "#include \"varnock/record.h\"\n"
      << "#include \"varnock/variant.h\"\n";
  for (const auto& r : t.relations) {
    if (r.kind == RelationKind::Parent) {
      out << "#include \"varnock/" << fileStem(r.other) << ".h\"\n";
    }
  }
  out << "\nVARNOCK_PUBLIC_BEGIN\nnamespace varnock {\n\n"
      << "class " << t.name << " final : public Record {\n"
      << " public:\n"
      << "  " << t.name << "() : Record(\"" << t.name << "\") {}\n";
  for (const Signature& s : propertiesOf(t))
    declare(out, s);
  out << "\n";
  for (const Signature& s : methodsOf(t))
    declare(out, s);
  out << "};\n\n}  // namespace varnock\nVARNOCK_PUBLIC_END\n";
  return out.str();
}

std::string classesSource() {
  std::ostringstream out;
  out << kLicenceLine
      << "// The members of every record class, each handing its call to the generic\n"
      << "// operation. Generated from the table catalogue by tools/generate_classes.cpp.\n"
      << "#include \"record/record_internal.h\"\n"
      << "#include \"relations/operations.h\"\n"
      << "#include \"sql/operations.h\"\n";
  for (const Table& t : varnock::catalogue::tables()) {
    out << "#include \"varnock/" << fileStem(t.name) << ".h\"\n";
  }
  out << "\nnamespace varnock {\n";
  for (const Table& t : varnock::catalogue::tables()) {
    out << "\n// " << t.name << "\n\n";
    for (const Signature& s : propertiesOf(t))
      define(out, t, s);
    for (const Signature& s : methodsOf(t))
      define(out, t, s);
  }
  out << "\n}  // namespace varnock\n";
  return out.str();
}

std::string umbrellaHeader() {
  std::ostringstream out;
  out << kLicenceLine
      << "// Varnock: the record classes of the user register Tolvane_Register, and\n"
      << "// everything else a C++ client may use: every public header.\n"
      << "// Generated from the table catalogue by tools/generate_classes.cpp.\n"
      << "#pragma once\n\n";
  for (const char* header :
       {"automation_error", "collection", "conversions", "dictionary", "event_log", "export",
        "host", "record", "register", "sql_trace", "type_library", "variant"}) {
    out << "#include \"varnock/" << header << ".h\"\n";
  }
  out << "\n";
  for (const Table& t : varnock::catalogue::tables()) {
    out << "#include \"varnock/" << fileStem(t.name) << ".h\"\n";
  }
  return out.str();
}

std::string factorySource() {
  std::ostringstream out;
  out << kLicenceLine << "// Generated from the table catalogue by tools/generate_classes.cpp.\n"
      << "#include \"record/new_record.h\"\n";
  for (const Table& t : varnock::catalogue::tables()) {
    out << "#include \"varnock/" << fileStem(t.name) << ".h\"\n";
  }
  out << "\nnamespace varnock {\n\n"
      << "std::shared_ptr<Record> newRecord(std::string_view tableName) {\n";
  for (const Table& t : varnock::catalogue::tables()) {
    out << "  if (tableName == \"" << t.name << "\") return std::make_shared<" << t.name
        << ">();\n";
  }
  out << "  return nullptr;\n}\n\n}  // namespace varnock\n";
  return out.str();
}

bool writeFile(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  file << text;
  return static_cast<bool>(file);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: generate_classes ROOT\n";
    return 2;
  }
  const std::filesystem::path root = argv[1];
  const std::filesystem::path include = root / "include" / "varnock";
  bool ok = writeFile(include / "varnock.h", umbrellaHeader());
  ok = writeFile(root / "src" / "record" / "new_record.cpp", factorySource()) && ok;
  ok = writeFile(root / "src" / "classes" / "record_classes.cpp", classesSource()) && ok;
  for (const Table& t : varnock::catalogue::tables()) {
    ok = writeFile(include / (fileStem(t.name) + ".h"), classHeader(t)) && ok;
  }
  if (!ok) {
    std::cerr << "generate_classes: cannot write under " << root << "\n";
    return 1;
  }
  return 0;
}
