// Writes the public header of each record class from the table catalogue:
// the class is naming only, so everything in it is derived from the catalogue.
// Usage: generate_classes INCLUDE_DIR SOURCE_DIR
//   writes INCLUDE_DIR/<table>.h and INCLUDE_DIR/varnock.h, and
//   SOURCE_DIR/new_record.cpp, the factory that makes objects by table name.
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "catalogue/catalogue.h"

namespace {

using varnock::catalogue::Table;

// "ZoneAddress" -> "zone_address"
std::string fileStem(std::string_view name) {
  std::string stem;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const char c = name[i];
    if (c >= 'A' && c <= 'Z') {
      if (i > 0) stem.push_back('_');
      stem.push_back(static_cast<char>(c - 'A' + 'a'));
    } else {
      stem.push_back(c);
    }
  }
  return stem;
}

using varnock::catalogue::Member;
using varnock::catalogue::MemberRole;

constexpr const char* kClauses =
    "std::string_view strWhereClause = {}, std::string_view strOrderClause = {}";

// The class's own name for a generic operation, with the arguments it takes.
void writeMethod(std::ostringstream& out, const Member& m) {
  switch (m.role) {
    case MemberRole::Get:
      out << "  bool " << m.name << "(" << kClauses << ") {\n"
          << "    return lookUp(strWhereClause, strOrderClause);\n  }\n";
      break;
    case MemberRole::GetFirst:
      out << "  bool " << m.name << "(" << kClauses << ") {\n"
          << "    return loadFirst(strWhereClause, strOrderClause);\n  }\n";
      break;
    case MemberRole::GetLast:
      out << "  // Reverses strOrderClause in place, so the caller sees the order used.\n"
          << "  bool " << m.name
          << "(std::string_view strWhereClause, std::string& strOrderClause) {\n"
          << "    return loadLast(strWhereClause, strOrderClause);\n  }\n"
          << "  bool " << m.name << "(" << kClauses << ") {\n"
          << "    std::string order(strOrderClause);\n"
          << "    return loadLast(strWhereClause, order);\n  }\n";
      break;
    case MemberRole::GetNext:
    case MemberRole::GetPrevious:
      out << "  bool " << m.name << "(std::int32_t lngOffset, " << kClauses << ") {\n"
          << "    return " << (m.role == MemberRole::GetNext ? "loadNext" : "loadPrevious")
          << "(lngOffset, strWhereClause, strOrderClause);\n  }\n";
      break;
    case MemberRole::GetEvery:
      out << "  std::shared_ptr<Collection> " << m.name << "(" << kClauses
          << ", const Variant& lngOffset = Variant(1), const Variant& lngNumRecords = Variant(0)) "
             "{\n"
          << "    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);\n"
          << "  }\n";
      break;
    case MemberRole::CountEvery:
      out << "  std::int32_t " << m.name << "(std::string_view strWhereClause = {}) {\n"
          << "    return countEvery(strWhereClause);\n  }\n";
      break;
    case MemberRole::Add:
      out << "  bool " << m.name << "() { return insertRow(); }\n";
      break;
    case MemberRole::Update:
      out << "  bool " << m.name << "() { return updateRow(); }\n";
      break;
    case MemberRole::Delete:
      out << "  bool " << m.name << "(std::string_view strWhereClause = {}) {\n"
          << "    return deleteRows(strWhereClause);\n  }\n";
      break;
    case MemberRole::GetParentIn:
      out << "  std::shared_ptr<" << m.resultClass << "> " << m.name << "() {\n"
          << "    return std::static_pointer_cast<" << m.resultClass << ">(parentIn("
          << int{m.index} << "));\n  }\n";
      break;
    case MemberRole::GetChildrenIn:
      out << "  std::shared_ptr<Collection> " << m.name << "(" << kClauses << ") {\n"
          << "    return childrenIn(" << int{m.index} << ", strWhereClause, strOrderClause);\n"
          << "  }\n";
      break;
    case MemberRole::CountChildrenIn:
      out << "  std::int32_t " << m.name << "() { return countChildrenIn(" << int{m.index}
          << "); }\n";
      break;
    case MemberRole::GetDerivedChildrenIn:
      if (m.arguments.empty()) {
        out << "  std::shared_ptr<Collection> " << m.name << "() {\n"
            << "    return derivedChildrenIn(" << int{m.index} << ", {}, {});\n  }\n";
      } else {
        out << "  std::shared_ptr<Collection> " << m.name << "(" << kClauses << ") {\n"
            << "    return derivedChildrenIn(" << int{m.index}
            << ", strWhereClause, strOrderClause);\n  }\n";
      }
      break;
    case MemberRole::CountDerivedChildrenIn:
      out << "  std::int32_t " << m.name << "(" << kClauses << ") {\n"
          << "    return countDerivedChildrenIn(" << int{m.index}
          << ", strWhereClause, strOrderClause);\n  }\n";
      break;
    default:
      return;  // properties and the members every class shares come from Record
  }
}

std::string classHeader(const Table& t) {
  std::ostringstream out;
  out << "// " << t.name << ": a record object over one row of the register's " << t.name
      << " table.\n"
      << "// Generated from the table catalogue by tools/generate_classes.cpp; change the\n"
      << "// catalogue or the generator, not this file.\n"
      << "#pragma once\n\n"
      << "#include <cstdint>\n"
      << "#include <memory>\n"
      << "#include <string>\n"
      << "#include <string_view>\n\n"
      << "#include \"varnock/record.h\"\n";
  for (const auto& r : t.relations) {
    if (r.kind == varnock::catalogue::RelationKind::Parent) {
      out << "#include \"varnock/" << fileStem(r.other) << ".h\"\n";
    }
  }
  out << "\nnamespace varnock {\n\n"
      << "class " << t.name << " final : public Record {\n"
      << " public:\n"
      << "  " << t.name << "() : Record(\"" << t.name << "\") {}\n";
  for (std::size_t i = 0; i < t.columns.size(); ++i) {
    const auto& c = t.columns[i];
    out << "\n  // " << c.field << ": " << varnock::catalogue::sqlTypeName(c.type) << ", Null "
        << (c.nullRefused ? "refused" : "allowed") << ".\n"
        << "  Variant get_" << c.property << "() const { return column(" << i << "); }\n"
        << "  void put_" << c.property << "(const Variant& value) { assign(" << i
        << ", value); }\n";
  }
  out << "\n";
  for (const Member& m : t.members)
    writeMethod(out, m);
  out << "};\n\n}  // namespace varnock\n";
  return out.str();
}

std::string umbrellaHeader() {
  std::ostringstream out;
  out << "// Varnock: the record classes of the user register Tolvane_Register.\n"
      << "// Generated from the table catalogue by tools/generate_classes.cpp.\n"
      << "#pragma once\n\n"
      << "#include \"varnock/automation_error.h\"\n"
      << "#include \"varnock/collection.h\"\n"
      << "#include \"varnock/conversions.h\"\n"
      << "#include \"varnock/dictionary.h\"\n"
      << "#include \"varnock/event_log.h\"\n"
      << "#include \"varnock/record.h\"\n"
      << "#include \"varnock/variant.h\"\n\n";
  for (const Table& t : varnock::catalogue::tables()) {
    out << "#include \"varnock/" << fileStem(t.name) << ".h\"\n";
  }
  return out.str();
}

std::string factorySource() {
  std::ostringstream out;
  out << "// Generated from the table catalogue by tools/generate_classes.cpp.\n"
      << "#include \"record/new_record.h\"\n"
      << "#include \"varnock/varnock.h\"\n\n"
      << "namespace varnock {\n\n"
      << "std::shared_ptr<Record> newRecord(std::string_view tableName) {\n";
  for (const Table& t : varnock::catalogue::tables()) {
    out << "  if (tableName == \"" << t.name << "\") return std::make_shared<" << t.name
        << ">();\n";
  }
  out << "  return nullptr;\n}\n\n}  // namespace varnock\n";
  return out.str();
}

bool writeFile(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  return static_cast<bool>(file);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: generate_classes INCLUDE_DIR SOURCE_DIR\n";
    return 2;
  }
  const std::string dir = argv[1];
  bool ok = writeFile(dir + "/varnock.h", umbrellaHeader());
  ok = writeFile(std::string(argv[2]) + "/new_record.cpp", factorySource()) && ok;
  for (const Table& t : varnock::catalogue::tables()) {
    ok = writeFile(dir + "/" + fileStem(t.name) + ".h", classHeader(t)) && ok;
  }
  if (!ok) {
    std::cerr << "generate_classes: cannot write to " << dir << " or " << argv[2] << "\n";
    return 1;
  }
  return 0;
}
