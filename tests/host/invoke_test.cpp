// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>

#include "support/failure_of.h"

#include "support/captured_events.h"
#include "varnock/automation_error.h"
#include "varnock/host.h"
#include "varnock/varnock.h"

namespace varnock {
namespace {

std::int32_t idOf(const Record& record, std::string_view name) {
  return GetIDsOfNames(record, {name})[0];
}

Variant call(Record& record, std::string_view name, DispatchArguments arguments = {}) {
  return Invoke(record, idOf(record, name), kDispatchMethod, arguments);
}

TEST(CreateObject, ByProgIdOrClassIdInAnyCase) {
  EXPECT_NE(dynamic_cast<User*>(CreateObject("Varnock.User").get()), nullptr);
  EXPECT_EQ(CreateObject("VARNOCK.zonepool")->GetTableName(), "ZonePool");
  EXPECT_EQ(CreateObject("{8ec93ea5-f48a-45b9-8e88-7f9abe16a5d9}")->GetTableName(), "User");
  const auto a = CreateObject("Varnock.Country");
  const auto b = CreateObject("Varnock.Country");
  EXPECT_NE(a.get(), b.get());
  EXPECT_EQ(a->get_DSN(), Record::defaultConnectionString());
  for (const char* name : {"Varnock.Users", "User", "", "8EC93EA5-F48A-45B9-8E88-7F9ABE16A5D9",
                           "{BE18E3A5-D64D-4890-8383-3F4953890749}"}) {
    EXPECT_EQ(testing::failureOf([&] { CreateObject(name); }), kCannotCreateObject) << name;
  }
}

TEST(GetIDsOfNames, MatchesMembersAndArgumentsWithoutCase) {
  const auto user = CreateObject("Varnock.User");
  EXPECT_EQ(GetIDsOfNames(*user, {"dsn"})[0], 0x68030011);
  EXPECT_EQ(GetIDsOfNames(*user, {"REMOTE_ADDR"})[0], 0x68030000);
  EXPECT_EQ(GetIDsOfNames(*user, {"gettablename"})[0], 0x60030013);
  EXPECT_EQ(GetIDsOfNames(*user, {"GetEveryUser", "LNGNUMRECORDS", "strwhereclause"}),
            (std::vector<std::int32_t>{0x60030013 + 12, 3, 0}));
  EXPECT_EQ(testing::failureOf([&] { GetIDsOfNames(*user, {"GetEveryZone"}); }), kUnknownName);
  EXPECT_EQ(testing::failureOf([&] {
              GetIDsOfNames(*user, {"GetEveryUser", "lngCount"});
            }),
            kUnknownName);
}

TEST(Invoke, ReadsAndAssignsProperties) {
  testing::CapturedEvents events;
  const auto user = CreateObject("Varnock.User");
  DispatchArguments value{{Variant("jdoe")}, {}};
  Invoke(*user, idOf(*user, "Username"), kDispatchPropertyPut, value);
  DispatchArguments none;
  EXPECT_EQ(Invoke(*user, idOf(*user, "Username"), kDispatchPropertyGet, none), Variant("jdoe"));
  EXPECT_EQ(Invoke(*user, idOf(*user, "Username"), kDispatchPropertyGet | kDispatchMethod, none),
            Variant("jdoe"));

  DispatchArguments named{{}, {{kDispatchIdPropertyPut, Variant(42)}}};
  Invoke(*user, idOf(*user, "DSN"), kDispatchPropertyPut, named);
  EXPECT_EQ(user->get_DSN(), "42");  // converted to the declared string

  DispatchArguments refused{{Variant("maybe")}, {}};
  Invoke(*user, idOf(*user, "Authorized"), kDispatchPropertyPut, refused);
  EXPECT_EQ(call(*user, "GetLastErrorMessage"), Variant("Cannot convert this value to bit"));
  EXPECT_EQ(events.last().source, "Authorized");
}

TEST(Invoke, FillsOmittedOptionalArgumentsWithDefaults) {
  const auto user = CreateObject("Varnock.User");
  EXPECT_EQ(call(*user, "IsDataProperty", {{Variant("username")}, {}}), Variant(true));
  EXPECT_EQ(call(*user, "IsDataProperty", {{Variant("username"), Variant(true)}, {}}),
            Variant(false));
  EXPECT_EQ(call(*user, "IsDataProperty", {{Variant("username")}, {{1, Variant("True")}}}),
            Variant(false));
}

TEST(Invoke, RefusesArgumentsThatDoNotFit) {
  struct Case {
    const char* member;
    DispatchArguments arguments;
    std::int32_t failure;
  };
  const Case cases[] = {
      {"SetDataProperty", {{Variant("Zone")}, {}}, kParameterNotOptional},
      {"GetTableName", {{Variant(1)}, {}}, kBadParameterCount},
      {"IsDataProperty", {{Variant("Zone")}, {{5, Variant()}}}, kParameterNotFound},
      {"IsDataProperty", {{Variant("Zone")}, {{0, Variant("Test")}}}, kParameterNotFound},
      {"IsDataProperty", {{Variant("Zone"), Variant("perhaps")}, {}}, kDispatchTypeMismatch},
      {"GetNextZone", {{Variant(1e12)}, {}}, kDispatchOverflow},
      {"GetNextZone", {{Variant("abc")}, {}}, kDispatchTypeMismatch},
      {"GetDataProperty", {{Variant::null()}, {}}, kDispatchTypeMismatch}};
  const auto zone = CreateObject("Varnock.Zone");
  for (const Case& c : cases) {
    DispatchArguments arguments = c.arguments;
    EXPECT_EQ(testing::failureOf([&] { call(*zone, c.member, arguments); }), c.failure) << c.member;
  }
}

TEST(Invoke, ConvertsTextToTheDeclaredInteger) {
  testing::CapturedEvents events;
  const auto zone = CreateObject("Varnock.Zone");
  // "3" is accepted as the offset; the call then fails on the default
  // connection string's provider, which this build does not have.
  EXPECT_EQ(call(*zone, "GetNextZone", {{Variant("3")}, {}}), Variant(false));
  EXPECT_EQ(events.last().source, "GetNextZone");
}

TEST(Invoke, WritesByReferenceArgumentsBack) {
  testing::CapturedEvents events;
  const auto zone = CreateObject("Varnock.Zone");
  DispatchArguments arguments{{Variant(7)}, {{1, Variant("North")}}};
  EXPECT_EQ(call(*zone, "SetDataProperty", arguments), Variant(false));
  // strPropertyName is by reference: it comes back converted to its type.
  DispatchArguments again{{Variant("Zone")}, {{1, Variant("North")}}};
  EXPECT_EQ(Invoke(*zone, idOf(*zone, "SetDataProperty"), kDispatchMethod, again), Variant(true));
  EXPECT_EQ(again.positional[0], Variant("Zone"));
  DispatchArguments byValue{{Variant(1)}, {}};
  call(*zone, "IsDataProperty", byValue);
  Invoke(*zone, idOf(*zone, "IsDataProperty"), kDispatchMethod, byValue);
  EXPECT_EQ(byValue.positional[0], Variant(1));  // by value: left as given
  DispatchArguments numbered{{Variant(12)}, {}};
  Invoke(*zone, idOf(*zone, "GetDataProperty"), kDispatchMethod, numbered);
  EXPECT_EQ(numbered.positional[0], Variant("12"));  // by reference: the converted text
}

TEST(Invoke, ReturnsObjectsAndReachesEveryMember) {
  const auto user = CreateObject("Varnock.User");
  const Variant dictionary = call(*user, "GetDictionary");
  ASSERT_TRUE(dictionary.isObject());
  EXPECT_EQ(dictionary.asObject()->typeName(), "Dictionary");
  EXPECT_EQ(call(*user, "SetDictionary", {{dictionary}, {}}), Variant(false));

  // Every member of every class is reachable by its identifier and kind.
  for (const auto& t : {"Country", "ErrorLog", "GroupCode", "GroupMember", "LogFile", "Parm",
                        "State", "User", "Zone", "ZoneAddress", "ZonePool"}) {
    const auto record = CreateObject(std::string("Varnock.") + t);
    for (const MemberDescription& m : members(t)) {
      const std::uint16_t kind = m.kind == MemberKind::Method        ? kDispatchMethod
                                 : m.kind == MemberKind::PropertyGet ? kDispatchPropertyGet
                                                                     : kDispatchPropertyPut;
      DispatchArguments tooMany;
      tooMany.positional.assign(m.arguments.size() + 1, Variant());
      EXPECT_EQ(testing::failureOf([&] { Invoke(*record, m.dispatchId, kind, tooMany); }),
                kBadParameterCount)
          << t << "." << m.name;
    }
    DispatchArguments none;
    EXPECT_EQ(testing::failureOf([&] { Invoke(*record, 0x60030000, kDispatchMethod, none); }),
              kMemberNotFound);
    EXPECT_EQ(testing::failureOf([&] {
                Invoke(*record, idOf(*record, "GetTableName"), kDispatchPropertyPut, none);
              }),
              kMemberNotFound);
  }
}

TEST(Members, DescribeTheInterfaceInOrder) {
  const auto user = members("varnock.user");
  ASSERT_EQ(user.size(), 61u);
  EXPECT_EQ(user[0].name, "DSN");
  EXPECT_EQ(user[0].kind, MemberKind::PropertyGet);
  EXPECT_EQ(user[1].kind, MemberKind::PropertyPut);
  ASSERT_EQ(user[1].arguments.size(), 1u);
  EXPECT_EQ(user[1].arguments[0].name, "value");
  EXPECT_EQ(user[1].resultType, "");
  EXPECT_EQ(user[0].resultType, "String");
  EXPECT_EQ(members("User").back().name, "CountDerivedChildrenInZone");
  // The methods that fill the object itself, and no others.
  std::vector<std::string> loading;
  for (const MemberDescription& m : user) {
    if (m.loadsObject) loading.push_back(m.name);
  }
  EXPECT_EQ(loading, (std::vector<std::string>{"GetUser", "GetFirstUser", "GetLastUser",
                                               "GetNextUser", "GetPreviousUser"}));
  // The methods that work on the object alone; every other method, and no
  // property, reaches the register.
  std::vector<std::string> alone;
  for (const MemberDescription& m : user) {
    if (m.kind != MemberKind::Method) {
      EXPECT_FALSE(m.reachesRegister) << m.name;
    } else if (!m.reachesRegister) {
      alone.push_back(m.name);
    }
  }
  EXPECT_EQ(alone, (std::vector<std::string>{"GetTableName", "GetLastErrorMessage",
                                             "IsDataProperty", "GetDataProperty", "SetDataProperty",
                                             "GetDictionary", "SetDictionary"}));
  EXPECT_EQ(members("ZonePool").size(), 24u);
  EXPECT_EQ(testing::failureOf([] { members("Nothing"); }), kCannotCreateObject);
}

TEST(Members, DescribeArgumentsResultsAndWhatEachDoes) {
  const auto zone = members("Varnock.ZonePool");
  const auto named = [&](std::string_view name) {
    const auto it = std::find_if(zone.begin(), zone.end(),
                                 [&](const MemberDescription& m) { return m.name == name; });
    EXPECT_NE(it, zone.end()) << name;
    return *it;
  };
  const MemberDescription every = named("GetEveryZonePool");
  EXPECT_EQ(every.resultType, "Collection");
  ASSERT_EQ(every.arguments.size(), 4u);
  const ArgumentDescription& order = every.arguments[1];
  EXPECT_EQ(order.name, "strOrderClause");
  EXPECT_EQ(order.type, "String");
  EXPECT_TRUE(order.byReference && order.optional);
  EXPECT_EQ(order.defaultValue, Variant(""));
  EXPECT_EQ(every.arguments[2].defaultValue, Variant(1));
  EXPECT_EQ(every.arguments[3].name, "lngNumRecords");
  EXPECT_NE(every.summary.find("new ZonePool objects"), std::string::npos) << every.summary;

  const MemberDescription next = named("GetNextZonePool");
  EXPECT_EQ(next.resultType, "Boolean");
  EXPECT_FALSE(next.arguments[0].optional);
  EXPECT_EQ(next.arguments[0].type, "Long");
  EXPECT_EQ(next.arguments[0].defaultValue, Variant());

  // A parent is an object of its own class; every member says what it does.
  EXPECT_EQ(named("GetParentInZone").resultType, "Zone");
  for (const MemberDescription& m : zone)
    EXPECT_FALSE(m.summary.empty()) << m.name;
}

}  // namespace
}  // namespace varnock
