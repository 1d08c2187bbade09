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

TEST_F(Reading, KeyLookupLoadsTheFirstRowThroughTheChecks) {
  User user;
  connect(user);
  user.put_Username("jdoe");
  answer({{{"UserName", Variant("jdoe")},
           {"Lastname", Variant("Doe")},
           {"Authorized", Variant(true)},
           {"SiteType", Variant::null()}},
          {{"UserName", Variant("second")}}});
  // Fields missing from the scripted row fail the copy, so give them all.
  for (const auto& field :
       {"Firstname", "Country", "State", "Password", "Email", "Pagetopic", "Bio", "Graphic", "Link",
        "DateCreated", "AuthorisationDate", "AuthorisationMessage", "REMOTE_ADDR"}) {
    std::get<std::vector<Row>>(script().answers.back())[0][field] = Variant::null();
  }
  std::get<std::vector<Row>>(script().answers.back())[0]["Country"] = Variant("NO");
  std::get<std::vector<Row>>(script().answers.back())[0]["Password"] = Variant("x");
  std::get<std::vector<Row>>(script().answers.back())[0]["Email"] = Variant("j@d.o");

  EXPECT_TRUE(user.GetUser());
  EXPECT_EQ(script().statements.back(), "SELECT * FROM [User] WHERE UserName = 'jdoe'");
  EXPECT_EQ(user.get_Lastname(), Variant("Doe"));
  EXPECT_EQ(user.get_Authorized(), Variant(true));
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

TEST_F(Reading, AConditionReplacesTheKeyAndAnOrderIsAppended) {
  Country country;
  connect(country);
  country.put_Country("Norway");
  country.GetCountry("Country LIKE 'N%'", "Country DESC");
  country.GetCountry("", "Country");
  EXPECT_EQ(script().statements,
            (std::vector<std::string>{
                "SELECT TOP 1 * FROM [Country] WHERE Country LIKE 'N%' ORDER BY Country DESC",
                "SELECT * FROM [Country] WHERE Country = 'Norway' ORDER BY Country"}));
  EXPECT_EQ(country.get_Country(), Variant("Norway"));  // no row: unchanged
}

TEST_F(Reading, NavigationSendsOneStatementPerStepAndNoneOutOfRange) {
  Zone zone;
  connect(zone);
  EXPECT_FALSE(zone.GetNextZone(0));
  EXPECT_FALSE(zone.GetNextZone(-4));
  EXPECT_FALSE(zone.GetPreviousZone(1));
  EXPECT_TRUE(script().statements.empty());
  EXPECT_EQ(script().opened, 3);  // the connection is opened all the same
  EXPECT_EQ(script().closed, 3);

  zone.GetFirstZone("Test = 1", "Zone");
  zone.GetNextZone(1, "Test = 1", "Zone");
  zone.GetPreviousZone(2, "Test = 1", "Zone");
  zone.GetPreviousZone(5);
  EXPECT_EQ(script().statements,
            (std::vector<std::string>{
                "SELECT TOP 1 * FROM [Zone] WHERE Test = 1 ORDER BY Zone",
                "SELECT TOP 1 * FROM [Zone] WHERE Zone NOT IN  (SELECT TOP 1 Zone FROM [Zone] "
                "WHERE Test = 1 ORDER BY Zone) AND Test = 1 ORDER BY Zone",
                "SELECT TOP 1 * FROM [Zone] WHERE Test = 1 ORDER BY Zone",
                "SELECT TOP 1 * FROM [Zone] WHERE Zone NOT IN  (SELECT TOP 3 Zone FROM [Zone])"}));
}

TEST_F(Reading, GetLastReversesTheOrderAndHandsItBack) {
  Country country;
  connect(country);
  std::string order;
  country.GetLastCountry("", order);
  EXPECT_EQ(order, "Country DESC");
  order = "Country DESC";
  country.GetLastCountry("", order);
  EXPECT_EQ(order, "Country ASC");
  EXPECT_EQ(script().statements.back(), "SELECT TOP 1 * FROM [Country] ORDER BY Country ASC");

  // Late-bound, the rewritten order comes back through the by-reference argument.
  const auto user = CreateObject("Varnock.User");
  user->put_DSN("Provider=Recording");
  DispatchArguments arguments{{Variant(""), Variant("Lastname")}, {}};
  Invoke(*user, GetIDsOfNames(*user, {"GetLastUser"})[0], kDispatchMethod, arguments);
  EXPECT_EQ(arguments.positional[1], Variant("Lastname DESC"));
}

TEST_F(Reading, GetEveryBuildsNewObjectsCarryingTheCallersDsn) {
  ZonePool pool;
  connect(pool);
  pool.put_Zone("kept");
  answer({{{"Zone", Variant("North")}, {"Address", Variant(1)}},
          {{"Zone", Variant("North")}, {"Address", Variant(2)}}});
  const auto rows = pool.GetEveryZonePool("Zone = 'North'", "Address", Variant(2), Variant(10));
  EXPECT_EQ(script().statements.back(),
            "SELECT TOP 10 * FROM [ZonePool] WHERE Zone NOT IN  (SELECT TOP 2 Zone FROM [ZonePool] "
            "WHERE Zone = 'North' ORDER BY Address) AND Zone = 'North' ORDER BY Address");
  ASSERT_EQ(rows->Count(), 2);
  const auto second = std::dynamic_pointer_cast<ZonePool>(rows->Item(2).asObject());
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->get_Address(), Variant(2));
  EXPECT_EQ(second->get_DSN(), "Provider=Recording");
  EXPECT_EQ(pool.get_Zone(), Variant("kept"));

  pool.GetEveryZonePool("", "", Variant(1), Variant(0));
  pool.GetEveryZonePool("", "", Variant("0"), Variant(-3));
  EXPECT_EQ(script().statements[1], "SELECT * FROM [ZonePool]");
  EXPECT_EQ(script().statements[2], "SELECT * FROM [ZonePool]");
}

TEST_F(Reading, CountEveryRaisesItsFailuresWithoutReporting) {
  State state;
  connect(state);
  answer({{{"CountResultField", Variant(7)}}});
  EXPECT_EQ(state.CountEveryState("State LIKE 'A%'"), 7);
  EXPECT_EQ(script().statements.back(),
            "SELECT Count(*) AS CountResultField FROM [State] WHERE State LIKE 'A%'");
  fail(-2147217900, "Incorrect syntax near 'LIKE'.");
  EXPECT_THROW(state.CountEveryState("LIKE"), AutomationError);
  EXPECT_EQ(state.GetLastErrorMessage(), "");
  EXPECT_EQ(events_.count(), 0u);
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

  Country country;  // the default connection names a provider this build lacks
  EXPECT_FALSE(country.GetFirstCountry());
  EXPECT_EQ(country.GetLastErrorMessage().rfind("Provider cannot be found.", 0), 0u);
  EXPECT_NE(country.GetLastErrorMessage().find("SQLOLEDB.1"), std::string::npos);
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
