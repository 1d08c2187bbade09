#include <gtest/gtest.h>

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

TEST(Catalogue, HoldsTheElevenTablesInTypeLibraryOrder) {
  std::vector<std::string_view> names;
  for (const Table& t : tables())
    names.push_back(t.name);
  EXPECT_EQ(names, (std::vector<std::string_view>{"Country", "ErrorLog", "GroupCode", "GroupMember",
                                                  "LogFile", "Parm", "State", "User", "Zone",
                                                  "ZoneAddress", "ZonePool"}));
  EXPECT_EQ(findTable("user"), nullptr);
  EXPECT_EQ(table("User").progId, "Varnock.User");
  EXPECT_EQ(table("User").classId, "{8EC93EA5-F48A-45B9-8E88-7F9ABE16A5D9}");
  EXPECT_EQ(table("ZonePool").interfaceName, "_ZonePool");
  EXPECT_EQ(table("ZonePool").interfaceId, "{EA2FAA6F-46CF-44BB-B669-99E26B84FADF}");
}

TEST(Catalogue, MemberCountsMatchTheInterfaces) {
  const std::map<std::string_view, std::size_t> expected{
      {"Country", 21}, {"ErrorLog", 29},    {"GroupCode", 29}, {"GroupMember", 25},
      {"LogFile", 27}, {"Parm", 29},        {"State", 21},     {"User", 61},
      {"Zone", 29},    {"ZoneAddress", 29}, {"ZonePool", 24}};
  for (const Table& t : tables())
    EXPECT_EQ(t.members.size(), expected.at(t.name)) << t.name;
}

TEST(Catalogue, UsernameFieldsAndNullRulesAreKept) {
  const Table& user = table("User");
  EXPECT_EQ(user.columns.size(), 17u);
  EXPECT_EQ(user.columns[0].property, "Username");
  EXPECT_EQ(user.columns[0].field, "UserName");
  EXPECT_EQ(user.columns[16].field, "REMOTE_ADDR");
  EXPECT_EQ(user.matchNames[16], "remote_addr");
  EXPECT_EQ(table("LogFile").columns[2].field, "Username");
  EXPECT_FALSE(table("LogFile").columns[2].nullRefused);
  EXPECT_EQ(table("GroupMember").columns[1].field, "UserName");
  EXPECT_EQ(table("ZoneAddress").columns[1].field, "UserName");
}

TEST(Catalogue, NavigationAndDefaultOrder) {
  const std::map<std::string_view, std::string> expected{
      {"Country", "Country DESC"},       {"ErrorLog", " DESC"},     {"GroupCode", "GroupCode DESC"},
      {"GroupMember", "GroupCode DESC"}, {"LogFile", " DESC"},      {"Parm", "Section DESC"},
      {"State", "State DESC"},           {"User", "UserName DESC"}, {"Zone", "Zone DESC"},
      {"ZoneAddress", "Zone DESC"},      {"ZonePool", "Zone DESC"}};
  for (const Table& t : tables())
    EXPECT_EQ(t.defaultOrder, expected.at(t.name)) << t.name;
  EXPECT_TRUE(table("ErrorLog").wholeRowKey);
  EXPECT_EQ(table("ErrorLog").keyColumns.size(), 5u);
  EXPECT_EQ(table("ZonePool").keyColumns.size(), 2u);
}

TEST(Catalogue, NameListEndsEveryFieldWithNul) {
  EXPECT_EQ(table("Country").nameList, std::string("Country\0", 8));
  EXPECT_EQ(table("ErrorLog").nameList,
            std::string("DateCreated\0UserId\0ErrorNumber\0ErrorDescription\0Message\0", 56));
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

TEST(Members, InterfaceOrderPutsPropertiesThenMethodsThenRelations) {
  EXPECT_EQ(memberNames(table("Country")), (std::vector<std::string>{"DSN",
                                                                     "DSN",
                                                                     "GetTableName",
                                                                     "Country",
                                                                     "Country",
                                                                     "GetLastErrorMessage",
                                                                     "IsDataProperty",
                                                                     "GetDataProperty",
                                                                     "SetDataProperty",
                                                                     "GetDictionary",
                                                                     "SetDictionary",
                                                                     "GetCountry",
                                                                     "GetFirstCountry",
                                                                     "GetLastCountry",
                                                                     "GetNextCountry",
                                                                     "GetPreviousCountry",
                                                                     "GetEveryCountry",
                                                                     "CountEveryCountry",
                                                                     "AddCountry",
                                                                     "UpdateCountry",
                                                                     "DeleteCountry"}));
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

TEST(Members, ArgumentsCarryNamesDefaultsAndDirections) {
  const Table& user = table("User");
  const Member& every = member(user, "GetEveryUser");
  ASSERT_EQ(every.arguments.size(), 4u);
  EXPECT_EQ(every.arguments[2].name, "lngOffset");
  EXPECT_EQ(every.arguments[2].type, ValueType::Variant);
  EXPECT_EQ(every.arguments[2].defaultValue, Variant(1));
  EXPECT_EQ(every.arguments[3].defaultValue, Variant(0));
  EXPECT_TRUE(every.arguments[0].byRef);

  const Member& next = member(user, "GetNextUser");
  EXPECT_EQ(next.arguments[0].name, "lngOffset");
  EXPECT_FALSE(next.arguments[0].optional);
  EXPECT_EQ(next.arguments[1].defaultValue, Variant(""));

  const Member& isData = member(user, "IsDataProperty");
  EXPECT_FALSE(isData.arguments[0].byRef);
  EXPECT_EQ(isData.arguments[1].defaultValue, Variant(false));

  EXPECT_TRUE(member(user, "GetChildrenInGroupMember").arguments[1].byRef);
  EXPECT_FALSE(member(user, "GetDerivedChildrenInGroupCode").arguments[0].byRef);
  EXPECT_TRUE(member(user, "GetDerivedChildrenInZone").arguments.empty());
  EXPECT_TRUE(member(table("GroupCode"), "GetDerivedChildrenInUser").arguments.empty());
  EXPECT_EQ(member(table("Zone"), "GetDerivedChildrenInUser").arguments.size(), 2u);
  EXPECT_EQ(member(table("GroupCode"), "CountDerivedChildrenInUser").arguments.size(), 2u);
  EXPECT_EQ(member(table("ZonePool"), "GetParentInZone").resultClass, "Zone");
}

}  // namespace
}  // namespace varnock::catalogue
