// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "catalogue/catalogue.h"

namespace varnock::catalogue {
namespace {

std::vector<std::string> memberNames(const Table& t) {
  std::vector<std::string> names;
  for (const Member& m : t.members)
    names.push_back(m.name);
  return names;
}

const Member& member(const Table& t, std::string_view name, InvokeKind kind = InvokeKind::Method) {
  for (const Member& m : t.members) {
    if (m.name == name && m.kind == kind) return m;
  }
  throw std::runtime_error("no member " + std::string(name));
}

TEST(Catalogue, MemberCountsMatchTheInterfaces) {
  const std::map<std::string_view, std::size_t> expected{
      {"Country", 21}, {"ErrorLog", 29},    {"GroupCode", 29}, {"GroupMember", 25},
      {"LogFile", 27}, {"Parm", 29},        {"State", 21},     {"User", 61},
      {"Zone", 29},    {"ZoneAddress", 29}, {"ZonePool", 24}};
  for (const Table& t : tables())
    EXPECT_EQ(t.members.size(), expected.at(t.name)) << t.name;
}

TEST(Members, DispatchIdentifiersFollowTheNumberingRules) {
  const Table& errorLog = table("ErrorLog");
  EXPECT_EQ(member(errorLog, "Message", InvokeKind::PropertyGet).dispatchId, 0x68030000);
  EXPECT_EQ(member(errorLog, "Message", InvokeKind::PropertyPut).dispatchId, 0x68030000);
  EXPECT_EQ(member(errorLog, "ErrorDescription", InvokeKind::PropertyGet).dispatchId, 0x68030001);
  EXPECT_EQ(member(errorLog, "DateCreated", InvokeKind::PropertyGet).dispatchId, 0x68030004);
  EXPECT_EQ(member(errorLog, "DSN", InvokeKind::PropertyPut).dispatchId, 0x68030005);
  EXPECT_EQ(member(errorLog, "GetTableName").dispatchId, 0x60030007);

  const Table& country = table("Country");
  EXPECT_EQ(member(country, "GetTableName").dispatchId, 0x60030003);
  EXPECT_EQ(member(country, "GetLastErrorMessage").dispatchId, 0x60030004);
  EXPECT_EQ(member(country, "DeleteCountry").dispatchId, 0x60030013);
  EXPECT_EQ(member(table("User"), "CountDerivedChildrenInZone").dispatchId, 0x60030000 + 19 + 24);
}

TEST(Members, OnlyAPropertysGetterAndSetterShareAnIdentifier) {
  for (const Table& t : tables()) {
    std::map<std::int32_t, std::vector<const Member*>> byId;
    for (const Member& m : t.members)
      byId[m.dispatchId].push_back(&m);
    for (const auto& [id, shared] : byId) {
      const bool property = (id & 0x0F000000) == 0x08000000;  // 0x6803.... against 0x6003....
      if (!property) {
        EXPECT_EQ(shared.size(), 1u) << t.name << " " << id;
        EXPECT_EQ(shared[0]->kind, InvokeKind::Method) << t.name << " " << shared[0]->name;
        continue;
      }
      ASSERT_EQ(shared.size(), 2u) << t.name << " " << id;
      EXPECT_EQ(shared[0]->name, shared[1]->name);
      EXPECT_EQ(shared[0]->kind, InvokeKind::PropertyGet);
      EXPECT_EQ(shared[1]->kind, InvokeKind::PropertyPut);
    }
  }
}

TEST(Members, InterfaceOrderPutsPropertiesThenMethodsThenRelations) {
  std::string country;
  for (const std::string& name : memberNames(table("Country")))
    country += name + " ";
  EXPECT_EQ(country,
            "DSN DSN GetTableName Country Country GetLastErrorMessage IsDataProperty "
            "GetDataProperty SetDataProperty GetDictionary SetDictionary GetCountry "
            "GetFirstCountry GetLastCountry GetNextCountry GetPreviousCountry GetEveryCountry "
            "CountEveryCountry AddCountry UpdateCountry DeleteCountry ");
  const std::vector<std::string> user = memberNames(table("User"));
  EXPECT_EQ(
      std::vector<std::string>(user.end() - 8, user.end()),
      (std::vector<std::string>{"GetChildrenInGroupMember", "CountChildrenInGroupMember",
                                "GetChildrenInZoneAddress", "CountChildrenInZoneAddress",
                                "GetDerivedChildrenInGroupCode", "CountDerivedChildrenInGroupCode",
                                "GetDerivedChildrenInZone", "CountDerivedChildrenInZone"}));
  const std::vector<std::string> zoneAddress = memberNames(table("ZoneAddress"));
  EXPECT_EQ(std::vector<std::string>(zoneAddress.end() - 2, zoneAddress.end()),
            (std::vector<std::string>{"GetParentInUser", "GetParentInZone"}));
}

// The register declares nvarchar columns with a length and no other type with one.
TEST(Catalogue, OnlyNvarcharColumnsDeclareALength) {
  for (const Table& t : tables()) {
    for (const Column& c : t.columns) {
      if (c.type == SqlType::Nvarchar)
        EXPECT_GT(c.length, 0) << t.name << "." << c.field;
      else
        EXPECT_EQ(c.length, 0) << t.name << "." << c.field;
    }
  }
}

// A parent is referenced by its key, so the join field must be exactly that key
// and a column of the child.
TEST(Catalogue, AParentIsJoinedOnItsWholeKey) {
  for (const Table& t : tables()) {
    for (const Relation& r : t.relations) {
      if (r.kind != RelationKind::Parent) continue;
      const Table& parent = table(r.other);
      ASSERT_EQ(parent.keyColumns.size(), 1u) << parent.name;
      EXPECT_EQ(parent.columns[parent.keyColumns[0]].field, r.joinField) << t.name;
      EXPECT_TRUE(
          std::ranges::any_of(t.columns, [&](const Column& c) { return c.field == r.joinField; }))
          << t.name << "." << r.joinField;
    }
  }
}

}  // namespace
}  // namespace varnock::catalogue
