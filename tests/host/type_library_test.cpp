// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <map>
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

// The text with every run of blanks and line ends made one blank, and none
// at either end.
std::string collapsed(std::string_view s) {
  std::string out;
  for (const char c : s) {
    if (c != ' ' && c != '\n') {
      out += c;
    } else if (!out.empty() && out.back() != ' ') {
      out += ' ';
    }
  }
  if (!out.empty() && out.back() == ' ') out.pop_back();
  return out;
}

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

struct Entry {
  std::string attributes;  // inside the leading [...]
  std::string name;
  std::string parameters;  // collapsed
};

// The entries of an interface, in order; each ends with ");" and a line end.
std::vector<Entry> interfaceEntries(std::string_view table) {
  const std::string body = typeBlock("interface _" + std::string(table) + " : IDispatch").body;
  std::vector<Entry> list;
  for (std::size_t pos = body.find("[id("); pos != std::string::npos;
       pos = body.find("[id(", pos)) {
    const std::size_t attributesEnd = body.find(']', pos);
    const std::size_t nameStart = body.find("HRESULT ", attributesEnd) + 8;
    const std::size_t open = body.find('(', nameStart);
    const std::size_t close = body.find(");\n", open);
    list.push_back({body.substr(pos + 1, attributesEnd - pos - 1),
                    body.substr(nameStart, open - nameStart),
                    collapsed(body.substr(open + 1, close - open - 1))});
    pos = close;
  }
  return list;
}

TEST(TypeLibrary, LibraryHeaderNamesTheLibrary) {
  const std::string& text = libraryText();
  const std::size_t library = text.find("library Varnock\n{\n");
  ASSERT_NE(library, std::string::npos);
  const std::size_t open = text.rfind("[\n", library);
  ASSERT_NE(open, std::string::npos);
  const std::string attributes = text.substr(open, library - open);
  for (const char* attribute :
       {"uuid(BE18E3A5-D64D-4890-8383-3F4953890749)", "version(1.0)", "lcid(0x0409)"}) {
    EXPECT_NE(attributes.find(attribute), std::string::npos) << attribute;
  }
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
    EXPECT_EQ(collapsed(coclass.body), "[default] interface _" + name + ";");

    // Interface then its class, in catalogue order.
    EXPECT_LT(previous, iface.position);
    EXPECT_LT(iface.position, coclass.position);
    previous = coclass.position;
  }
}

TEST(TypeLibrary, EachInterfaceListsEveryMemberInOrderWithItsIdAndKind) {
  for (const catalogue::Table& t : catalogue::tables()) {
    SCOPED_TRACE(std::string(t.name));
    const std::vector<Entry> list = interfaceEntries(t.name);
    ASSERT_EQ(list.size(), t.members.size());
    for (std::size_t i = 0; i < list.size(); ++i) {
      const catalogue::Member& m = t.members[i];
      char id[16];
      std::snprintf(id, sizeof id, "0x%08x", static_cast<unsigned>(m.dispatchId));
      const char* kind = m.kind == catalogue::InvokeKind::PropertyGet   ? ", propget"
                         : m.kind == catalogue::InvokeKind::PropertyPut ? ", propput"
                                                                        : "";
      EXPECT_EQ(list[i].name, m.name) << i;
      EXPECT_EQ(list[i].attributes, "id(" + std::string(id) + ")" + kind) << m.name;
    }
  }
}

TEST(TypeLibrary, ParametersSpellTheirDirectionDefaultAndBoundaryType) {
  struct Case {
    const char* table;
    const char* member;
    std::size_t occurrence;  // a property's getter is its first entry, its setter the second
    const char* parameters;
  };
  const Case cases[] = {
      {"Country", "DSN", 0, "[out, retval] BSTR*"},
      {"Country", "DSN", 1, "[in] BSTR rhs"},
      {"User", "Authorized", 0, "[out, retval] VARIANT*"},
      {"User", "Authorized", 1, "[in] VARIANT rhs"},
      {"User", "GetEveryUser", 0,
       "[in, out, optional, defaultvalue(\"\")] BSTR* strWhereClause, "
       "[in, out, optional, defaultvalue(\"\")] BSTR* strOrderClause, "
       "[in, out, optional, defaultvalue(1)] VARIANT* lngOffset, "
       "[in, out, optional, defaultvalue(0)] VARIANT* lngNumRecords, "
       "[out, retval] IDispatch** /* Collection */"},
      {"Parm", "IsDataProperty", 0,
       "[in] BSTR strPropertyName, [in, optional, defaultvalue(0)] VARIANT_BOOL "
       "blnCaseSensitive, [out, retval] VARIANT_BOOL*"},
      {"Parm", "SetDataProperty", 0,
       "[in, out] BSTR* strPropertyName, [in, out] VARIANT* varPropertyValue, "
       "[out, retval] VARIANT_BOOL*"},
      {"Zone", "GetNextZone", 0,
       "[in] long lngOffset, [in, out, optional, defaultvalue(\"\")] BSTR* strWhereClause, "
       "[in, out, optional, defaultvalue(\"\")] BSTR* strOrderClause, [out, retval] "
       "VARIANT_BOOL*"},
      {"State", "GetDictionary", 0, "[out, retval] IDispatch**"},
      // Derived lists differ: User's list of zones takes nothing, its count
      // takes the clauses by value.
      {"User", "GetDerivedChildrenInZone", 0, "[out, retval] IDispatch** /* Collection */"},
      {"User", "CountDerivedChildrenInZone", 0,
       "[in, optional, defaultvalue(\"\")] BSTR strWhereClause, [in, optional, "
       "defaultvalue(\"\")] BSTR strOrderClause, [out, retval] long*"},
      {"GroupMember", "GetParentInGroupCode", 0, "[out, retval] _GroupCode**"},
  };
  for (const Case& c : cases) {
    std::vector<std::string> found;
    for (const Entry& e : interfaceEntries(c.table)) {
      if (e.name == c.member) found.push_back(e.parameters);
    }
    ASSERT_GT(found.size(), c.occurrence) << c.table << "." << c.member;
    EXPECT_EQ(found[c.occurrence], c.parameters) << c.table << "." << c.member;
  }
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
