// SPDX-License-Identifier: MIT
// Parents, children and derived children against a real register.
#include <gtest/gtest.h>

#include <map>

#include "support/back_end.h"
#include "support/captured_events.h"
#include "support/temp_register.h"
#include "varnock/host.h"
#include "varnock/varnock.h"

namespace varnock {
namespace {

std::vector<std::string> column(const Collection& rows, std::string_view field) {
  std::vector<std::string> values;
  for (const Variant& item : rows) {
    values.push_back(
        toText(std::dynamic_pointer_cast<Record>(item.asObject())->GetDataProperty(field)));
  }
  return values;
}

class RegisterRelations : public ::testing::Test {
 protected:
  void SetUp() override {
    register_.run({
        "INSERT INTO [Country] VALUES ('Norway')",
        "INSERT INTO [User] (UserName, Lastname, Country, Password, Email, Authorized) VALUES "
        "('jdoe', 'Doe', 'Norway', 'x', 'j@x', 1)",
        "INSERT INTO [User] (UserName, Lastname, Country, Password, Email, Authorized) VALUES "
        "('asmith', 'Smith', 'Norway', 'x', 'a@x', 0)",
        "INSERT INTO [User] (UserName, Lastname, Country, Password, Email, Authorized) VALUES "
        "('bjones', 'Jones', 'Norway', 'x', 'b@x', 1)",
        "INSERT INTO [GroupCode] VALUES ('ADM', 'Admins', 'all rights')",
        "INSERT INTO [GroupCode] VALUES ('USR', 'Users', NULL)",
        "INSERT INTO [GroupCode] VALUES ('NON', 'Nobody', NULL)",
        "INSERT INTO [GroupMember] VALUES ('ADM', 'jdoe')",
        "INSERT INTO [GroupMember] VALUES ('USR', 'jdoe')",
        "INSERT INTO [GroupMember] VALUES ('USR', 'asmith')",
        "INSERT INTO [GroupMember] VALUES ('USR', 'bjones')",
        "INSERT INTO [Zone] VALUES ('Z1', 0)",
        "INSERT INTO [Zone] VALUES ('Z2', 1)",
        "INSERT INTO [ZoneAddress] VALUES ('Z1', 'jdoe', 7, '2000-05-04 13:45:00')",
        "INSERT INTO [ZoneAddress] VALUES ('Z1', 'asmith', 8, '2000-05-04 13:45:00')",
        "INSERT INTO [ZoneAddress] VALUES ('Z2', 'jdoe', 9, '2000-05-04 13:45:00')",
        "INSERT INTO [ZonePool] VALUES ('Z1', 5)",
        "INSERT INTO [ZonePool] VALUES ('Z1', 15)",
        "INSERT INTO [ZonePool] VALUES ('Z1', 25)",
    });
  }
  template <class T>
  void connect(T& record) {
    record.put_DSN(register_.dsn());
  }

  testing::TempRegister register_;
  testing::CapturedEvents events_;
};

TEST_F(RegisterRelations, ParentsAreFoundOrReportedMissing) {
  GroupMember member;
  connect(member);
  member.put_GroupCode("ADM");
  member.put_Username("jdoe");
  const auto group = member.GetParentInGroupCode();
  ASSERT_NE(group, nullptr);
  EXPECT_EQ(group->get_Group(), Variant("Admins"));
  EXPECT_EQ(group->get_Comment(), Variant("all rights"));
  EXPECT_EQ(group->get_DSN(), member.get_DSN());
  EXPECT_EQ(member.GetParentInUser()->get_Lastname(), Variant("Doe"));

  member.put_GroupCode("XXX");
  EXPECT_EQ(member.GetParentInGroupCode(), nullptr);
  EXPECT_EQ(member.GetLastErrorMessage(), client::kNoCurrentRecordText);
  EXPECT_EQ(events_.last().source, "GetParentInGroupCode");
  EXPECT_TRUE(
      events_.last().message.ends_with("SQL = SELECT * FROM [GroupCode] WHERE GroupCode = 'XXX'"));
  EXPECT_EQ(member.get_GroupCode(), Variant("XXX"));  // the current object is unchanged

  ZonePool pool;
  connect(pool);
  pool.put_Zone("Z2");
  EXPECT_EQ(pool.GetParentInZone()->get_Test(), Variant(true));
  ZoneAddress address;
  connect(address);
  address.put_Username("o'brien");
  EXPECT_EQ(address.GetParentInUser(), nullptr);
  EXPECT_EQ(events_.last().source, "GetParentInUser");
  address.put_Zone(Variant::null());  // Null compares with the empty text
  EXPECT_EQ(address.GetParentInZone(), nullptr);
}

TEST_F(RegisterRelations, ChildrenComeFromTheChildsOwnEnumeration) {
  GroupCode users;
  connect(users);
  users.put_GroupCode("USR");
  const auto members = users.GetChildrenInGroupMember("", "UserName");
  ASSERT_NE(members, nullptr);
  EXPECT_EQ(column(*members, "UserName"), (std::vector<std::string>{"asmith", "bjones", "jdoe"}));
  EXPECT_EQ(users.CountChildrenInGroupMember(), 3);
  EXPECT_EQ(std::dynamic_pointer_cast<Record>(members->Item(1).asObject())->get_DSN(),
            register_.dsn());

  Zone zone;
  connect(zone);
  zone.put_Zone("Z1");
  EXPECT_EQ(column(*zone.GetChildrenInZonePool("Address > 10", "Address DESC"), "Address"),
            (std::vector<std::string>{"25", "15"}));
  EXPECT_EQ(zone.CountChildrenInZonePool(), 3);
  EXPECT_EQ(zone.CountChildrenInZoneAddress(), 2);

  User user;
  connect(user);
  user.put_Username("jdoe");
  EXPECT_EQ(user.CountChildrenInGroupMember(), 2);
  EXPECT_EQ(column(*user.GetChildrenInZoneAddress("", "Zone"), "Zone"),
            (std::vector<std::string>{"Z1", "Z2"}));
  user.put_Username("");
  EXPECT_EQ(user.GetChildrenInZoneAddress()->Count(), 0);  // not every row
  EXPECT_EQ(events_.count(), 0u);
}

TEST_F(RegisterRelations, ChildFailuresAreTheChildsAndCountsReportTheirOwn) {
  GroupCode group;
  connect(group);
  group.put_GroupCode("o'brien");
  const auto members = group.GetChildrenInGroupMember();
  ASSERT_NE(members, nullptr);  // the child's GetEvery failed and returned its empty collection
  EXPECT_EQ(members->Count(), 0);
  EXPECT_EQ(events_.last().source, "GetEveryGroupMember");
  EXPECT_EQ(group.GetLastErrorMessage(), "");

  EXPECT_EQ(group.CountChildrenInGroupMember(), 0);  // the child's count raises: trapped here
  EXPECT_EQ(events_.last().source, "CountChildrenInGroupMember");
  EXPECT_EQ(events_.last().message.find("SQL = "), std::string::npos);
  EXPECT_FALSE(group.GetLastErrorMessage().empty());
  EXPECT_TRUE(events_.last().message.ends_with(" [" + testing::providerSource() + "]"));
}

TEST_F(RegisterRelations, DerivedChildrenInBothDirections) {
  User user;
  connect(user);
  user.put_Username("jdoe");
  // Both tables have a GroupCode: the order names the one it means.
  const auto groups = user.GetDerivedChildrenInGroupCode("", "[GroupCode].GroupCode");
  ASSERT_NE(groups, nullptr);
  EXPECT_EQ(column(*groups, "GroupCode"), (std::vector<std::string>{"ADM", "USR"}));
  EXPECT_EQ(column(*groups, "Group"), (std::vector<std::string>{"Admins", "Users"}));
  EXPECT_EQ(user.CountDerivedChildrenInGroupCode(), 2);
  EXPECT_EQ(column(*user.GetDerivedChildrenInGroupCode("[GroupCode].GroupCode = 'USR'"), "Group"),
            (std::vector<std::string>{"Users"}));
  const auto zones = user.GetDerivedChildrenInZone();
  EXPECT_EQ(zones->Count(), 2);
  EXPECT_EQ(user.CountDerivedChildrenInZone(), 2);

  Zone zone;
  connect(zone);
  zone.put_Zone("Z1");
  EXPECT_EQ(column(*zone.GetDerivedChildrenInUser("", "Lastname"), "Lastname"),
            (std::vector<std::string>{"Doe", "Smith"}));
  EXPECT_EQ(column(*zone.GetDerivedChildrenInUser("Authorized = 1", ""), "UserName"),
            (std::vector<std::string>{"jdoe"}));
  EXPECT_EQ(zone.CountDerivedChildrenInUser("Authorized = 1"), 1);

  GroupCode nobody;
  connect(nobody);
  nobody.put_GroupCode("NON");
  const auto none = nobody.GetDerivedChildrenInUser();
  ASSERT_NE(none, nullptr);
  EXPECT_EQ(none->Count(), 0);
  EXPECT_EQ(nobody.CountDerivedChildrenInUser(), 0);
  nobody.put_GroupCode("USR");
  EXPECT_EQ(nobody.CountDerivedChildrenInUser(), 3);
  EXPECT_EQ(events_.count(), 0u);
}

TEST_F(RegisterRelations, DerivedFailuresReturnNothing) {
  User user;
  connect(user);
  user.put_Username("o'brien");
  EXPECT_EQ(user.GetDerivedChildrenInZone(), nullptr);
  EXPECT_EQ(events_.last().source, "GetDerivedChildrenInZone");
  EXPECT_EQ(user.CountDerivedChildrenInZone(), 0);
  EXPECT_EQ(events_.last().source, "CountDerivedChildrenInZone");
  EXPECT_NE(events_.last().message.find("SQL = SELECT Count(*)"), std::string::npos);
}

// Every relation method of every class, late-bound, on one object per class
// whose key names rows of the register.
TEST_F(RegisterRelations, EveryRelationMethodReachesItsRows) {
  const std::map<std::string, std::vector<std::pair<std::string, Variant>>> keys{
      {"GroupCode", {{"GroupCode", Variant("USR")}}},
      {"GroupMember", {{"GroupCode", Variant("USR")}, {"Username", Variant("asmith")}}},
      {"User", {{"Username", Variant("jdoe")}}},
      {"Zone", {{"Zone", Variant("Z1")}}},
      {"ZoneAddress", {{"Zone", Variant("Z1")}, {"Username", Variant("asmith")}}},
      {"ZonePool", {{"Zone", Variant("Z1")}, {"Address", Variant(5)}}},
  };
  // Rows listed or counted, or 1 for a parent found.
  const std::map<std::string, std::int32_t> expected{
      {"GroupCode.GetChildrenInGroupMember", 3}, {"GroupCode.CountChildrenInGroupMember", 3},
      {"GroupCode.GetDerivedChildrenInUser", 3}, {"GroupCode.CountDerivedChildrenInUser", 3},
      {"GroupMember.GetParentInGroupCode", 1},   {"GroupMember.GetParentInUser", 1},
      {"User.GetChildrenInGroupMember", 2},      {"User.CountChildrenInGroupMember", 2},
      {"User.GetChildrenInZoneAddress", 2},      {"User.CountChildrenInZoneAddress", 2},
      {"User.GetDerivedChildrenInGroupCode", 2}, {"User.CountDerivedChildrenInGroupCode", 2},
      {"User.GetDerivedChildrenInZone", 2},      {"User.CountDerivedChildrenInZone", 2},
      {"Zone.GetChildrenInZoneAddress", 2},      {"Zone.CountChildrenInZoneAddress", 2},
      {"Zone.GetChildrenInZonePool", 3},         {"Zone.CountChildrenInZonePool", 3},
      {"Zone.GetDerivedChildrenInUser", 2},      {"Zone.CountDerivedChildrenInUser", 2},
      {"ZoneAddress.GetParentInUser", 1},        {"ZoneAddress.GetParentInZone", 1},
      {"ZonePool.GetParentInZone", 1},
  };
  std::size_t called = 0;
  for (const auto& [cls, columns] : keys) {
    const auto record = CreateObject("Varnock." + cls);
    record->put_DSN(register_.dsn());
    for (const auto& [column, value] : columns)
      record->SetDataProperty(column, value);
    for (const MemberDescription& m : members(cls)) {
      const auto it = expected.find(cls + "." + m.name);
      if (it == expected.end()) continue;
      DispatchArguments none;
      const Variant result = Invoke(*record, m.dispatchId, kDispatchMethod, none);
      std::int32_t rows = 0;
      if (result.type() == Variant::Type::Long) {
        rows = result.asLong();
      } else if (const auto list = std::dynamic_pointer_cast<Collection>(result.asObject())) {
        rows = list->Count();
      } else if (const auto parent = std::dynamic_pointer_cast<Record>(result.asObject())) {
        rows = 1;
        EXPECT_EQ(parent->get_DSN(), register_.dsn());
      }
      EXPECT_EQ(rows, it->second) << it->first;
      ++called;
    }
    EXPECT_EQ(record->GetLastErrorMessage(), "") << cls;
  }
  EXPECT_EQ(called, expected.size());
  EXPECT_EQ(events_.count(), 0u);
}

TEST_F(RegisterRelations, LateBoundListMethodsKeepTheirArguments) {
  const auto zone = CreateObject("Varnock.Zone");
  zone->put_DSN(register_.dsn());
  zone->SetDataProperty("Zone", Variant("Z1"));
  DispatchArguments clauses{{Variant("Authorized = 1"), Variant("Lastname")}, {}};
  const Variant users = Invoke(*zone, GetIDsOfNames(*zone, {"GetDerivedChildrenInUser"})[0],
                               kDispatchMethod, clauses);
  EXPECT_EQ(std::dynamic_pointer_cast<Collection>(users.asObject())->Count(), 1);

  const auto group = CreateObject("Varnock.GroupCode");
  group->put_DSN(register_.dsn());
  DispatchArguments one{{Variant("x")}, {}};
  try {
    Invoke(*group, GetIDsOfNames(*group, {"GetDerivedChildrenInUser"})[0], kDispatchMethod, one);
    FAIL() << "a list method without arguments took one";
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.number(), kBadParameterCount);
  }
  const auto member = CreateObject("Varnock.GroupMember");
  member->put_DSN(register_.dsn());
  DispatchArguments none;
  const Variant parent =
      Invoke(*member, GetIDsOfNames(*member, {"GetParentInUser"})[0], kDispatchMethod, none);
  EXPECT_TRUE(parent.isObject());
  EXPECT_EQ(parent.asObject(), nullptr);  // no object after a failure
}

}  // namespace
}  // namespace varnock
