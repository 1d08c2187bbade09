// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "support/captured_events.h"
#include "varnock/automation_error.h"
#include "varnock/host.h"
#include "varnock/varnock.h"

namespace varnock {
namespace {

std::string unknown(const std::string& name) {
  return "Property [" + name + "]doesn't exist in this class";
}

// A container that is not a Dictionary, with its own order and a failing item.
class OrderedPairs final : public KeyedContainer {
 public:
  std::vector<std::pair<Variant, Variant>> pairs;
  std::string_view typeName() const override { return "OrderedPairs"; }
  std::vector<Variant> keyList() const override {
    std::vector<Variant> keys;
    for (const auto& p : pairs)
      keys.push_back(p.first);
    return keys;
  }
  Variant itemOf(const Variant& key) const override {
    for (const auto& p : pairs) {
      if (p.first == key) return p.second;
    }
    throw AutomationError(5, "Invalid procedure call or argument", "OrderedPairs");
  }
};

TEST(IsDataProperty, MatchesWholeFieldNames) {
  Country country;
  EXPECT_TRUE(country.IsDataProperty("country"));
  EXPECT_FALSE(country.IsDataProperty("country", true));
  EXPECT_TRUE(country.IsDataProperty("Country", true));
  for (const std::string& part :
       std::vector<std::string>{"Count", "Countr", "Country ", std::string("Country\0", 8),
                                std::string("Country\0Country", 15), "CountryCountry"}) {
    EXPECT_FALSE(country.IsDataProperty(part)) << part;
  }
  // The case-sensitive test asks for the field name, not the property name.
  for (const char* table : {"User", "GroupMember", "ZoneAddress"}) {
    const auto record = CreateObject(std::string("Varnock.") + table);
    EXPECT_TRUE(record->IsDataProperty("USERNAME")) << table;
    EXPECT_FALSE(record->IsDataProperty("Username", true)) << table;
    EXPECT_TRUE(record->IsDataProperty("UserName", true)) << table;
  }
  EXPECT_TRUE(User().IsDataProperty("remote_addr"));
  EXPECT_FALSE(User().IsDataProperty("Name"));
  EXPECT_TRUE(LogFile().IsDataProperty("Username", true));
  EXPECT_FALSE(LogFile().IsDataProperty("UserName", true));
}

TEST(IsDataProperty, TheEmptyNameIsAColumnOnlyOfOneColumnTablesAndLeavesNoTrace) {
  testing::CapturedEvents events;
  for (const auto& t : {"Country", "ErrorLog", "GroupCode", "GroupMember", "LogFile", "Parm",
                        "State", "User", "Zone", "ZoneAddress", "ZonePool"}) {
    auto record = CreateObject(std::string("Varnock.") + t);
    const bool oneColumn = std::string_view(t) == "Country" || std::string_view(t) == "State";
    EXPECT_EQ(record->IsDataProperty(""), oneColumn) << t;
    EXPECT_EQ(record->IsDataProperty("", true), oneColumn) << t;
    EXPECT_EQ(record->GetLastErrorMessage(), "");
  }
  Zone zone;
  zone.put_Test("maybe");
  EXPECT_FALSE(zone.IsDataProperty("Colour"));
  EXPECT_EQ(zone.GetLastErrorMessage(), "Cannot convert this value to bit");  // left as it was
  EXPECT_EQ(events.count(), 1u);  // the refused bit only
}

TEST(GetDataProperty, ReadsAnyCaseAndReportsUnknownNames) {
  testing::CapturedEvents events;
  User user;
  user.put_REMOTE_ADDR("10.0.0.1");
  for (const char* name : {"REMOTE_ADDR", "remote_addr", "Remote_Addr"}) {
    EXPECT_EQ(user.GetDataProperty(name), Variant("10.0.0.1")) << name;
  }
  EXPECT_EQ(events.count(), 0u);

  Country country;
  EXPECT_TRUE(country.GetDataProperty("Colour").isEmpty());
  EXPECT_EQ(country.GetLastErrorMessage(), unknown("Colour"));
  ASSERT_EQ(events.count(), 1u);
  EXPECT_EQ(events.last().id, 17);
  EXPECT_EQ(events.last().source, "");
  EXPECT_EQ(events.last().message, "\r\n" + unknown("Colour"));
}

TEST(GetDataProperty, LetsAFailedEventWriteThrough) {
  testing::CapturedEvents events;
  events.failWritesWith(28);
  Country country;
  EXPECT_THROW(country.GetDataProperty("Colour"), AutomationError);
  EXPECT_EQ(country.GetLastErrorMessage(), unknown("Colour"));
}

TEST(SetDataProperty, AssignsThroughTheColumnChecksAndClearsAnEarlierMessage) {
  testing::CapturedEvents events;
  Parm parm;
  EXPECT_FALSE(parm.SetDataProperty("Locked", "maybe"));
  EXPECT_EQ(parm.GetLastErrorMessage(), "Cannot convert this value to bit");
  EXPECT_EQ(events.last().id, 13);
  EXPECT_EQ(events.last().source, "Locked");
  EXPECT_TRUE(parm.SetDataProperty("value", Variant::null()));
  EXPECT_TRUE(parm.get_Value().isNull());
  EXPECT_EQ(parm.GetLastErrorMessage(), "");  // cleared by a success
  EXPECT_TRUE(parm.SetDataProperty("KEYNAME", "Timeout"));
  EXPECT_EQ(parm.get_KeyName(), Variant("Timeout"));
  EXPECT_FALSE(parm.SetDataProperty("Section", Variant::null()));
  EXPECT_EQ(parm.GetLastErrorMessage(), "Property Section cannot be set to NULL");
}

TEST(SetDataProperty, ReportsUnknownNamesAndTrapsRunTimeErrors) {
  testing::CapturedEvents events;
  Zone zone;
  EXPECT_FALSE(zone.SetDataProperty("Colour", "red"));
  EXPECT_EQ(zone.GetLastErrorMessage(), unknown("Colour"));
  EXPECT_EQ(events.last().id, 17);

  // The event of the refusal cannot be written: the error is trapped and
  // reported under the method's name.
  events.failWritesWith(28, 1);
  EXPECT_FALSE(zone.SetDataProperty("Zone", Variant::null()));
  EXPECT_EQ(zone.GetLastErrorMessage(), "ReportEvent() failed");
  EXPECT_EQ(events.last().source, "SetDataProperty");
  EXPECT_EQ(events.last().id, static_cast<std::int32_t>(0x8004001C));
  EXPECT_EQ(events.last().message, "\r\nReportEvent() failed [Event Log Component]");
  // When that report fails as well, it is let through.
  events.failWritesWith(28);
  EXPECT_THROW(zone.SetDataProperty("Zone", Variant::null()), AutomationError);
  EXPECT_EQ(zone.GetLastErrorMessage(), "ReportEvent() failed");
}

TEST(GetDictionary, HoldsEveryColumnByFieldNameInOrder) {
  User user;
  user.put_Username("jdoe");
  const auto dictionary = user.GetDictionary();
  ASSERT_EQ(dictionary->Count(), 17);
  const std::vector<std::string> keys = dictionary->Keys();
  EXPECT_EQ(keys.front(), "UserName");
  EXPECT_EQ(keys[13], "Authorized");
  EXPECT_EQ(keys.back(), "REMOTE_ADDR");
  EXPECT_EQ(dictionary->Item("UserName"), Variant("jdoe"));
  EXPECT_TRUE(dictionary->Item("Bio").isNull());
  EXPECT_EQ(ZonePool().GetDictionary()->Keys(), (std::vector<std::string>{"Zone", "Address"}));
}

TEST(SetDictionary, AssignsInTheContainersOrderAndStopsAtTheFirstRefusal) {
  testing::CapturedEvents events;
  auto dictionary = std::make_shared<Dictionary>();
  dictionary->Add("zone", "North");
  dictionary->Add("Colour", "red");
  dictionary->Add("Test", true);
  Zone zone;
  EXPECT_FALSE(zone.SetDictionary(Variant(dictionary)));
  EXPECT_EQ(zone.get_Zone(), Variant("North"));
  EXPECT_TRUE(zone.get_Test().isNull());
  EXPECT_EQ(zone.GetLastErrorMessage(), unknown("Colour"));
}

TEST(SetDictionary, RoundTripsAndAcceptsOtherContainers) {
  testing::CapturedEvents events;
  User source;
  source.put_Username("jdoe");
  source.put_Lastname("Doe");
  User target;
  target.put_Username(Variant::null());  // leaves a message for the round trip to clear
  // Null columns that refuse Null stop the copy at the first of them.
  EXPECT_FALSE(target.SetDictionary(Variant(source.GetDictionary())));
  EXPECT_EQ(target.get_Username(), Variant("jdoe"));
  EXPECT_EQ(target.GetLastErrorMessage(), "Property Country cannot be set to NULL");

  auto pairs = std::make_shared<OrderedPairs>();
  pairs->pairs = {{Variant("Address"), Variant("42")}, {Variant("ZONE"), Variant("South")}};
  ZonePool pool;
  EXPECT_TRUE(pool.SetDictionary(Variant(pairs)));
  EXPECT_EQ(pool.get_Address(), Variant("42"));
  EXPECT_EQ(pool.get_Zone(), Variant("South"));
}

TEST(SetDictionary, AnEmptyContainerChangesNothing) {
  testing::CapturedEvents events;
  Zone zone;
  zone.put_Test("maybe");
  EXPECT_TRUE(zone.SetDictionary(Variant(std::make_shared<Dictionary>())));
  EXPECT_EQ(zone.GetLastErrorMessage(), "Cannot convert this value to bit");
}

TEST(SetDictionary, TrapsWhatIsNotAContainer) {
  testing::CapturedEvents events;
  Zone zone;
  EXPECT_FALSE(zone.SetDictionary(Variant("not an object")));
  EXPECT_EQ(zone.GetLastErrorMessage(), "Object required");
  EXPECT_EQ(events.last().id, 424);
  EXPECT_EQ(events.last().source, "SetDictionary");
  EXPECT_EQ(events.last().message, "\r\nObject required [Varnock]");

  EXPECT_FALSE(zone.SetDictionary(Variant(std::make_shared<Collection>())));
  EXPECT_EQ(events.last().id, 438);

  auto broken = std::make_shared<OrderedPairs>();
  broken->pairs = {{Variant::null(), Variant("x")}};
  EXPECT_FALSE(zone.SetDictionary(Variant(broken)));
  EXPECT_EQ(zone.GetLastErrorMessage(), "Invalid use of Null");
  EXPECT_EQ(events.last().id, 94);
}

}  // namespace
}  // namespace varnock
