#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "varnock/type_library.h"

namespace varnock::host {
namespace {

const std::string& libraryText() {
  static const std::string text = ::varnock::typeLibraryText();
  return text;
}

std::string trimmed(std::string_view s) {
  const auto first = s.find_first_not_of(" \n");
  if (first == std::string_view::npos) return {};
  const auto last = s.find_last_not_of(" \n");
  return std::string(s.substr(first, last - first + 1));
}

// Splits a parameter list at the commas outside brackets, parentheses and
// string literals.
std::vector<std::string> splitParameters(std::string_view list) {
  std::vector<std::string> parts;
  int depth = 0;
  bool quoted = false;
  std::size_t start = 0;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const char c = list[i];
    if (quoted) {
      if (c == '\\') ++i;
      if (c == '"') quoted = false;
    } else if (c == '"') {
      quoted = true;
    } else if (c == '[' || c == '(') {
      ++depth;
    } else if (c == ']' || c == ')') {
      --depth;
    } else if (c == ',' && depth == 0) {
      parts.push_back(trimmed(list.substr(start, i - start)));
      start = i + 1;
    }
  }
  const std::string last = trimmed(list.substr(start));
  if (!last.empty()) parts.push_back(last);
  return parts;
}

struct Entry {
  std::string attributes;  // inside the leading [...]
  std::string name;
  std::vector<std::string> parameters;
};

struct TypeBlock {
  std::string attributes;  // from the opening [ to the declaration
  std::string body;        // between the declaration's { and its };
  std::size_t position;    // of the declaration in the whole text
};

// The attribute list and body of the declaration that starts with `head`
// ("interface _Country : IDispatch", "coclass Country").
TypeBlock typeBlock(std::string_view head) {
  const std::string& text = libraryText();
  const std::string declaration = "    " + std::string(head) + " {\n";
  const std::size_t at = text.find(declaration);
  if (at == std::string::npos) throw std::runtime_error("no " + std::string(head));
  const std::size_t open = text.rfind("    [\n", at);
  const std::size_t bodyStart = at + declaration.size();
  const std::size_t close = text.find("    };\n", bodyStart);
  return {text.substr(open, at - open), text.substr(bodyStart, close - bodyStart), at};
}

std::vector<Entry> entries(std::string_view body) {
  std::vector<Entry> list;
  std::size_t pos = 0;
  while ((pos = body.find("[id(", pos)) != std::string_view::npos) {
    Entry e;
    const std::size_t attributesEnd = body.find(']', pos);
    e.attributes = std::string(body.substr(pos + 1, attributesEnd - pos - 1));
    const std::size_t nameStart = body.find("HRESULT ", attributesEnd) + 8;
    const std::size_t open = body.find('(', nameStart);
    e.name = std::string(body.substr(nameStart, open - nameStart));
    int depth = 1;
    bool quoted = false;
    std::size_t i = open + 1;
    for (; i < body.size() && depth > 0; ++i) {
      const char c = body[i];
      if (quoted) {
        if (c == '"') quoted = false;
      } else if (c == '"') {
        quoted = true;
      } else if (c == '(') {
        ++depth;
      } else if (c == ')') {
        --depth;
      }
    }
    e.parameters = splitParameters(body.substr(open + 1, i - 1 - (open + 1)));
    EXPECT_EQ(body.substr(i, 2), ";\n") << e.name;
    list.push_back(std::move(e));
    pos = i;
  }
  return list;
}

std::vector<Entry> interfaceEntries(std::string_view table) {
  return entries(typeBlock("interface _" + std::string(table) + " : IDispatch").body);
}

// The entry of that name; `kind` is "" for a method, "propget" or "propput".
Entry entry(std::string_view table, std::string_view name, std::string_view kind = "") {
  for (Entry& e : interfaceEntries(table)) {
    const bool isGet = e.attributes.find("propget") != std::string::npos;
    const bool isPut = e.attributes.find("propput") != std::string::npos;
    const std::string_view entryKind = isGet ? "propget" : isPut ? "propput" : "";
    if (e.name == name && entryKind == kind) return e;
  }
  throw std::runtime_error("no entry " + std::string(name) + " in _" + std::string(table));
}

std::string dispatchId(const Entry& e) {
  std::smatch m;
  static const std::regex id(R"(^id\((0x[0-9a-f]{8})\))");
  if (!std::regex_search(e.attributes, m, id)) return "malformed: " + e.attributes;
  return m[1];
}

TEST(TypeLibrary, LibraryHeaderNamesTheLibrary) {
  const std::string& text = libraryText();
  const std::size_t library = text.find("library Varnock\n{\n");
  ASSERT_NE(library, std::string::npos);
  const std::size_t open = text.rfind("[\n", library);
  ASSERT_NE(open, std::string::npos);
  const std::string attributes = text.substr(open, library - open);
  EXPECT_NE(attributes.find("uuid(BE18E3A5-D64D-4890-8383-3F4953890749)"), std::string::npos);
  EXPECT_NE(attributes.find("version(1.0)"), std::string::npos);
  EXPECT_NE(attributes.find("lcid(0x0409)"), std::string::npos);

  const std::size_t importlib = text.find("importlib(\"stdole2.tlb\");");
  ASSERT_NE(importlib, std::string::npos);
  EXPECT_GT(importlib, library);
  EXPECT_LT(importlib, text.find("interface _Country"));
  // Identifiers are written bare, never in registry form.
  EXPECT_EQ(text.find("uuid({"), std::string::npos);
}

struct ClassIdentity {
  std::string_view name;
  std::string_view classId;
  std::string_view interfaceId;
};

constexpr ClassIdentity kClasses[] = {
    {"Country", "581146D9-1869-4838-8622-46B0273D4895", "1CDC9ED3-E302-4071-BB0B-7EF8F3D980B7"},
    {"ErrorLog", "9AA3E79B-19D5-41FB-A0BF-50F9103A8F8C", "65F33A9E-C92F-4ACA-B879-99CAE6720682"},
    {"GroupCode", "A8EDAE86-6747-48E3-A62B-2EC3C40B987F", "4366A289-9FBB-4D0F-A721-BEF11D2C2683"},
    {"GroupMember", "D3814D0B-659D-4AD4-B4F7-D75336A27260", "370C7DBC-32AA-4CE9-A199-E0D86C0A32AB"},
    {"LogFile", "3D2B4B72-23CB-4473-AE0D-44ECB1261D92", "D948386C-FF72-49B6-83C5-BDD180164FE4"},
    {"Parm", "BFB2AA06-40A1-49A3-8BEE-64B557B0E3C4", "F5D786A5-0E8F-40F2-9D42-00CBC23FC7CE"},
    {"State", "8E996BD7-2C4D-4119-83D3-650565B16C56", "987995A9-FF99-481C-85CA-8B755858CDEE"},
    {"User", "8EC93EA5-F48A-45B9-8E88-7F9ABE16A5D9", "029DE9D9-6E5F-4886-B3BF-D34A1A9E0C9B"},
    {"Zone", "8D6812BC-E747-49DB-A3CB-384F259D9CB5", "B3E34DFD-839F-4503-B2D9-F717723760B3"},
    {"ZoneAddress", "315EFA9A-D603-4702-9088-F4E127F5E8FA", "C4C59B01-5154-4DBB-B325-810D913BC8B7"},
    {"ZonePool", "806478F5-34C5-43DE-910B-79595BA5F049", "EA2FAA6F-46CF-44BB-B669-99E26B84FADF"},
};

TEST(TypeLibrary, EveryClassHasItsDualInterfaceAndCoclass) {
  const std::string& text = libraryText();
  std::size_t previous = 0;
  for (const ClassIdentity& c : kClasses) {
    const std::string name(c.name);
    SCOPED_TRACE(name);
    const std::size_t forward = text.find("    interface _" + name + ";\n");
    ASSERT_NE(forward, std::string::npos);

    const TypeBlock iface = typeBlock("interface _" + name + " : IDispatch");
    EXPECT_LT(forward, iface.position);
    EXPECT_NE(iface.attributes.find("uuid(" + std::string(c.interfaceId) + ")"), std::string::npos);
    for (std::string_view attribute :
         {"odl,", "version(1.0),", "hidden,", "dual,", "nonextensible,", "oleautomation"}) {
      EXPECT_NE(iface.attributes.find(attribute), std::string::npos) << attribute;
    }

    const TypeBlock coclass = typeBlock("coclass " + name);
    EXPECT_NE(coclass.attributes.find("uuid(" + std::string(c.classId) + ")"), std::string::npos);
    EXPECT_NE(coclass.attributes.find("version(1.0)"), std::string::npos);
    // Creatable and not an application object.
    EXPECT_EQ(coclass.attributes.find("noncreatable"), std::string::npos);
    EXPECT_EQ(coclass.attributes.find("appobject"), std::string::npos);
    EXPECT_EQ(trimmed(coclass.body), "[default] interface _" + name + ";");

    // Interface then its class, in catalogue order.
    EXPECT_LT(previous, iface.position);
    EXPECT_LT(iface.position, coclass.position);
    previous = coclass.position;
  }
}

TEST(TypeLibrary, EachInterfaceListsItsMembersInOrder) {
  const std::map<std::string_view, std::size_t> expected{
      {"Country", 21}, {"ErrorLog", 29},    {"GroupCode", 29}, {"GroupMember", 25},
      {"LogFile", 27}, {"Parm", 29},        {"State", 21},     {"User", 61},
      {"Zone", 29},    {"ZoneAddress", 29}, {"ZonePool", 24}};
  for (const catalogue::Table& t : catalogue::tables()) {
    SCOPED_TRACE(std::string(t.name));
    const std::vector<Entry> list = interfaceEntries(t.name);
    EXPECT_EQ(list.size(), expected.at(t.name));
    ASSERT_EQ(list.size(), t.members.size());
    for (std::size_t i = 0; i < list.size(); ++i)
      EXPECT_EQ(list[i].name, t.members[i].name) << i;
  }
}

TEST(TypeLibrary, DispatchIdsFollowTheNumbering) {
  EXPECT_EQ(dispatchId(entry("ErrorLog", "Message", "propget")), "0x68030000");
  EXPECT_EQ(dispatchId(entry("ErrorLog", "Message", "propput")), "0x68030000");
  EXPECT_EQ(dispatchId(entry("ErrorLog", "DateCreated", "propget")), "0x68030004");
  EXPECT_EQ(dispatchId(entry("ErrorLog", "DSN", "propget")), "0x68030005");
  EXPECT_EQ(dispatchId(entry("ErrorLog", "DSN", "propput")), "0x68030005");
  EXPECT_EQ(dispatchId(entry("ErrorLog", "GetTableName")), "0x60030007");
  EXPECT_EQ(dispatchId(entry("Country", "GetTableName")), "0x60030003");
  EXPECT_EQ(dispatchId(entry("Country", "GetLastErrorMessage")), "0x60030004");
  EXPECT_EQ(dispatchId(entry("Country", "DeleteCountry")), "0x60030013");
  // User: 17 columns and DSN, so methods start at 0x60030013; REMOTE_ADDR is last.
  EXPECT_EQ(dispatchId(entry("User", "REMOTE_ADDR", "propget")), "0x68030000");
  EXPECT_EQ(dispatchId(entry("User", "DSN", "propget")), "0x68030011");
  EXPECT_EQ(dispatchId(entry("User", "GetTableName")), "0x60030013");
}

TEST(TypeLibrary, DispatchIdsAreSharedOnlyByAPropertysGetterAndSetter) {
  for (const catalogue::Table& t : catalogue::tables()) {
    SCOPED_TRACE(std::string(t.name));
    std::map<std::string, std::vector<Entry>> byId;
    for (Entry& e : interfaceEntries(t.name)) {
      const std::string id = dispatchId(e);
      ASSERT_EQ(id.rfind("0x", 0), 0u) << id;
      byId[id].push_back(std::move(e));
    }
    for (const auto& [id, shared] : byId) {
      if (shared.size() == 1) {
        EXPECT_EQ(shared[0].attributes.find("prop"), std::string::npos) << id;
        continue;
      }
      ASSERT_EQ(shared.size(), 2u) << id;
      EXPECT_EQ(shared[0].name, shared[1].name) << id;
      EXPECT_EQ(shared[0].attributes, "id(" + id + "), propget");
      EXPECT_EQ(shared[1].attributes, "id(" + id + "), propput");
    }
  }
}

TEST(TypeLibrary, PropertiesTakeAndReturnTheirBoundaryTypes) {
  using V = std::vector<std::string>;
  EXPECT_EQ(entry("Country", "DSN", "propget").parameters, V{"[out, retval] BSTR*"});
  EXPECT_EQ(entry("Country", "DSN", "propput").parameters, V{"[in] BSTR rhs"});
  EXPECT_EQ(entry("User", "Authorized", "propget").parameters, V{"[out, retval] VARIANT*"});
  EXPECT_EQ(entry("User", "Authorized", "propput").parameters, V{"[in] VARIANT rhs"});
}

TEST(TypeLibrary, ArgumentDirectionsAndDefaults) {
  using V = std::vector<std::string>;
  EXPECT_EQ(entry("User", "GetEveryUser").parameters,
            (V{"[in, out, optional, defaultvalue(\"\")] BSTR* strWhereClause",
               "[in, out, optional, defaultvalue(\"\")] BSTR* strOrderClause",
               "[in, out, optional, defaultvalue(1)] VARIANT* lngOffset",
               "[in, out, optional, defaultvalue(0)] VARIANT* lngNumRecords",
               "[out, retval] IDispatch** /* Collection */"}));
  EXPECT_EQ(entry("Parm", "IsDataProperty").parameters,
            (V{"[in] BSTR strPropertyName",
               "[in, optional, defaultvalue(0)] VARIANT_BOOL blnCaseSensitive",
               "[out, retval] VARIANT_BOOL*"}));
  EXPECT_EQ(entry("Parm", "SetDataProperty").parameters,
            (V{"[in, out] BSTR* strPropertyName", "[in, out] VARIANT* varPropertyValue",
               "[out, retval] VARIANT_BOOL*"}));
  EXPECT_EQ(
      entry("Zone", "GetNextZone").parameters,
      (V{"[in] long lngOffset", "[in, out, optional, defaultvalue(\"\")] BSTR* strWhereClause",
         "[in, out, optional, defaultvalue(\"\")] BSTR* strOrderClause",
         "[out, retval] VARIANT_BOOL*"}));
  EXPECT_EQ(
      entry("State", "CountEveryState").parameters,
      (V{"[in, out, optional, defaultvalue(\"\")] BSTR* strWhereClause", "[out, retval] long*"}));
  EXPECT_EQ(entry("State", "GetDictionary").parameters, V{"[out, retval] IDispatch**"});
  EXPECT_EQ(entry("State", "AddState").parameters, V{"[out, retval] VARIANT_BOOL*"});
}

TEST(TypeLibrary, RelationMethodsTakeAndReturnWhatTheirKindGives) {
  using V = std::vector<std::string>;
  // Derived lists differ: User's list of zones takes nothing, its list of
  // group codes takes the clauses by value.
  EXPECT_EQ(entry("User", "GetDerivedChildrenInZone").parameters,
            V{"[out, retval] IDispatch** /* Collection */"});
  EXPECT_EQ(entry("User", "GetDerivedChildrenInGroupCode").parameters,
            (V{"[in, optional, defaultvalue(\"\")] BSTR strWhereClause",
               "[in, optional, defaultvalue(\"\")] BSTR strOrderClause",
               "[out, retval] IDispatch** /* Collection */"}));
  EXPECT_EQ(entry("User", "CountDerivedChildrenInZone").parameters,
            (V{"[in, optional, defaultvalue(\"\")] BSTR strWhereClause",
               "[in, optional, defaultvalue(\"\")] BSTR strOrderClause", "[out, retval] long*"}));
  EXPECT_EQ(entry("Zone", "GetChildrenInZonePool").parameters,
            (V{"[in, out, optional, defaultvalue(\"\")] BSTR* strWhereClause",
               "[in, out, optional, defaultvalue(\"\")] BSTR* strOrderClause",
               "[out, retval] IDispatch** /* Collection */"}));
  EXPECT_EQ(entry("ZoneAddress", "GetParentInZone").parameters, V{"[out, retval] _Zone**"});
  EXPECT_EQ(entry("ZonePool", "GetParentInZone").parameters, V{"[out, retval] _Zone**"});
  EXPECT_EQ(entry("GroupMember", "GetParentInUser").parameters, V{"[out, retval] _User**"});
  EXPECT_EQ(entry("GroupMember", "GetParentInGroupCode").parameters,
            V{"[out, retval] _GroupCode**"});
}

TEST(TypeLibrary, BracesBracketsAndParenthesesBalance) {
  const std::string& text = libraryText();
  std::map<char, int> depth;
  const std::map<char, char> opener{{'}', '{'}, {']', '['}, {')', '('}};
  bool quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (quoted) {
      if (c == '\\') ++i;
      if (c == '"') quoted = false;
      continue;
    }
    if (c == '"') {
      quoted = true;
    } else if (text.compare(i, 2, "//") == 0) {
      i = text.find('\n', i);
    } else if (text.compare(i, 2, "/*") == 0) {
      i = text.find("*/", i) + 1;
    } else if (c == '{' || c == '[' || c == '(') {
      ++depth[c];
    } else if (opener.contains(c)) {
      ASSERT_GT(depth[opener.at(c)], 0) << "unmatched " << c << " at " << i;
      --depth[opener.at(c)];
    }
  }
  EXPECT_FALSE(quoted);
  for (const auto& [c, d] : depth)
    EXPECT_EQ(d, 0) << c;
  // One library body plus an interface and a coclass per class.
  EXPECT_EQ(std::count(text.begin(), text.end(), '{'), 1 + 2 * 11);
}

}  // namespace
}  // namespace varnock::host
