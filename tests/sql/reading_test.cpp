// SPDX-License-Identifier: MIT
// The reading operations against a recording provider: the statements they
// send, what they load, and the error path.
#include <gtest/gtest.h>

#include "support/captured_events.h"
#include "support/recording_provider.h"
#include "varnock/host.h"
#include "varnock/varnock.h"

namespace varnock {
namespace {

using testing::RecordingScript;
using testing::Row;

class Reading : public ::testing::Test {
 protected:
  void SetUp() override { testing::registerRecordingProvider(); }
  RecordingScript& script() { return RecordingScript::instance(); }
  void answer(std::vector<Row> rows) { script().answers.emplace_back(std::move(rows)); }
  void fail(std::int32_t number, const std::string& description) {
    script().answers.emplace_back(AutomationError(number, description, "Recording Provider"));
  }
  static void connect(Record& record) { record.put_DSN("Provider=Recording"); }
  testing::CapturedEvents events_;
};

TEST_F(Reading, KeyLookupLoadsTheFirstRowAndClosesTheConnection) {
  GroupMember member;
  connect(member);
  member.put_GroupCode("ADM");
  member.put_Username("jdoe");
  answer({{{"GroupCode", Variant("adm")}, {"UserName", Variant("JDOE")}},
          {{"GroupCode", Variant("second")}, {"UserName", Variant("second")}}});
  EXPECT_TRUE(member.GetGroupMember());
  EXPECT_EQ(script().statements.back(),
            "SELECT * FROM [GroupMember] WHERE GroupCode = 'ADM' AND  UserName = 'jdoe'");
  EXPECT_EQ(member.get_GroupCode(), Variant("adm"));
  EXPECT_EQ(member.get_Username(), Variant("JDOE"));
  EXPECT_EQ(script().opened, 1);
  EXPECT_EQ(script().closed, 1);
  EXPECT_EQ(events_.count(), 0u);
}

TEST_F(Reading, KeyValuesAreWrittenAsTheirTextAndNullAsNothing) {
  ErrorLog log;
  connect(log);
  log.put_DateCreated(Date::fromCivil({2000, 5, 4, 13, 45, 0}));
  log.put_ErrorNumber(42);
  log.put_UserId("o'brien");
  EXPECT_FALSE(log.GetErrorLog());
  EXPECT_EQ(script().statements.back(),
            "SELECT * FROM [ErrorLog] WHERE DateCreated = '5/4/2000 1:45:00 PM' AND  UserId = "
            "'o'brien' AND  ErrorNumber = '42' AND  ErrorDescription = '' AND  Message = ''");
}

TEST_F(Reading, NavigationOutOfRangeSendsNoStatementButOpensAndCloses) {
  Zone zone;
  connect(zone);
  EXPECT_FALSE(zone.GetNextZone(0));
  EXPECT_FALSE(zone.GetNextZone(-4));
  EXPECT_FALSE(zone.GetPreviousZone(1));
  EXPECT_TRUE(script().statements.empty());
  EXPECT_EQ(script().opened, 3);
  EXPECT_EQ(script().closed, 3);
  zone.GetPreviousZone(5);
  EXPECT_EQ(script().statements.back(),
            "SELECT TOP 1 * FROM [Zone] WHERE Zone NOT IN  (SELECT TOP 3 Zone FROM [Zone])");
}

TEST_F(Reading, GetEveryBuildsNewObjectsAndLeavesTheCallerAsItWas) {
  ZonePool pool;
  connect(pool);
  pool.put_Zone("kept");
  answer({{{"Zone", Variant("North")}, {"Address", Variant(1)}},
          {{"Zone", Variant("North")}, {"Address", Variant(2)}}});
  const auto rows = pool.GetEveryZonePool("", "", Variant("2"), Variant(10));
  ASSERT_EQ(rows->Count(), 2);
  const auto second = std::dynamic_pointer_cast<ZonePool>(rows->Item(2).asObject());
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->get_Address(), Variant(2));
  EXPECT_EQ(pool.get_Zone(), Variant("kept"));
  // Offsets and counts are converted; a count below one and an offset of one
  // or less are no limit at all.
  pool.GetEveryZonePool("", "", Variant(1), Variant(0));
  pool.GetEveryZonePool("", "", Variant("0"), Variant(-3));
  EXPECT_EQ(script().statements,
            (std::vector<std::string>{"SELECT TOP 10 * FROM [ZonePool] WHERE Zone NOT IN  (SELECT "
                                      "TOP 2 Zone FROM [ZonePool])",
                                      "SELECT * FROM [ZonePool]", "SELECT * FROM [ZonePool]"}));
}

TEST_F(Reading, ARejectedStatementTakesTheErrorPath) {
  Country country;
  connect(country);
  country.put_Country("Norway");
  fail(-2147217900, "Incorrect syntax near 'x'.");
  EXPECT_FALSE(country.GetCountry());
  EXPECT_EQ(country.GetLastErrorMessage(), "Incorrect syntax near 'x'.");
  ASSERT_EQ(events_.count(), 1u);
  EXPECT_EQ(events_.last().id, -2147217900);
  EXPECT_EQ(events_.last().source, "GetCountry");
  EXPECT_EQ(events_.last().message,
            "\r\nIncorrect syntax near 'x'. [Recording Provider] \r\nSQL = SELECT * FROM [Country] "
            "WHERE Country = 'Norway'");
  EXPECT_EQ(script().closed, 0);  // the error path releases without closing

  // A later success does not clear the message.
  EXPECT_FALSE(country.GetCountry());
  EXPECT_EQ(country.GetLastErrorMessage(), "Incorrect syntax near 'x'.");
}

TEST_F(Reading, AnUnreachableServerFailsBeforeAnyStatement) {
  auto user = CreateObject("Varnock.User");
  user->put_DSN("Provider=Recording;Fail=1");
  DispatchArguments none;
  const Variant rows =
      Invoke(*user, GetIDsOfNames(*user, {"GetEveryUser"})[0], kDispatchMethod, none);
  ASSERT_TRUE(rows.isObject());
  EXPECT_EQ(std::dynamic_pointer_cast<Collection>(rows.asObject())->Count(), 0);
  EXPECT_EQ(user->GetLastErrorMessage(), "Server does not exist or access denied.");
  EXPECT_EQ(events_.last().source, "GetEveryUser");
  EXPECT_EQ(events_.last().message,
            "\r\nServer does not exist or access denied. [Recording Provider] \r\nSQL = ");

  // The default connection reaches for SQL Server on this machine, where
  // none listens: the driver's words, with SQL Server's provider as source.
  Country country;
  EXPECT_FALSE(country.GetFirstCountry());
  EXPECT_FALSE(country.GetLastErrorMessage().empty());
  EXPECT_EQ(events_.last().source, "GetFirstCountry");
  EXPECT_EQ(events_.last().message, "\r\n" + country.GetLastErrorMessage() +
                                        " [Microsoft OLE DB Provider for SQL Server] \r\nSQL = ");
}

TEST_F(Reading, AFailedEventWriteEndsTheMethodWithThatError) {
  Country country;
  connect(country);
  fail(-2147217900, "Incorrect syntax.");
  events_.failWritesWith(28);
  try {
    country.GetFirstCountry();
    FAIL();
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.description(), "ReportEvent() failed");
  }
  EXPECT_EQ(country.GetLastErrorMessage(), "Incorrect syntax.");
}

TEST_F(Reading, AMissingFieldFailsTheCopyPartway) {
  GroupMember member;
  connect(member);
  answer({{{"GroupCode", Variant("admins")}}});
  EXPECT_FALSE(member.GetFirstGroupMember());
  EXPECT_EQ(member.get_GroupCode(), Variant("admins"));  // copied before the failure
  EXPECT_EQ(member.GetLastErrorMessage(), client::kItemNotFoundText);
}

}  // namespace
}  // namespace varnock
