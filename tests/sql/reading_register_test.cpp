// SPDX-License-Identifier: MIT
// The reading operations against a real register file.
#include <gtest/gtest.h>

#include <fstream>

#include "support/captured_events.h"
#include "support/temp_register.h"
#include "varnock/host.h"
#include "varnock/sql_trace.h"
#include "varnock/varnock.h"

namespace varnock {
namespace {

class RegisterReading : public ::testing::Test {
 protected:
  void SetUp() override {
    register_.run(
        {"INSERT INTO [Country] VALUES ('Norway')", "INSERT INTO [Country] VALUES ('chile')",
         "INSERT INTO [Country] VALUES ('Denmark')", "INSERT INTO [Country] VALUES ('Brazil')",
         "INSERT INTO [Country] VALUES ('austria')"});
  }
  template <class T>
  void connect(T& record) {
    record.put_DSN(register_.dsn());
  }
  std::vector<std::string> countriesOf(const Collection& rows) {
    std::vector<std::string> names;
    for (const Variant& item : rows) {
      names.push_back(toText(std::dynamic_pointer_cast<Country>(item.asObject())->get_Country()));
    }
    return names;
  }

  testing::TempRegister register_;
  testing::CapturedEvents events_;
};

TEST_F(RegisterReading, LooksUpByKeyAndByCondition) {
  Country country;
  connect(country);
  country.put_Country("DENMARK");  // text compares without regard to case
  EXPECT_TRUE(country.GetCountry());
  EXPECT_EQ(country.get_Country(), Variant("Denmark"));
  country.put_Country("Peru");
  EXPECT_FALSE(country.GetCountry());
  EXPECT_EQ(country.get_Country(), Variant("Peru"));
  EXPECT_TRUE(country.GetCountry("Country LIKE 'b%'"));
  EXPECT_EQ(country.get_Country(), Variant("Brazil"));
  EXPECT_TRUE(country.GetCountry("Country > 'c'", "Country DESC"));
  EXPECT_EQ(country.get_Country(), Variant("Norway"));
  EXPECT_EQ(events_.count(), 0u);
}

TEST_F(RegisterReading, WalksForwardsAndBackwards) {
  Country country;
  connect(country);
  std::vector<std::string> forwards;
  ASSERT_TRUE(country.GetFirstCountry("", "Country"));
  forwards.push_back(toText(country.get_Country()));
  for (std::int32_t position = 1; country.GetNextCountry(position, "", "Country"); ++position) {
    forwards.push_back(toText(country.get_Country()));
  }
  EXPECT_EQ(forwards,
            (std::vector<std::string>{"austria", "Brazil", "chile", "Denmark", "Norway"}));

  std::vector<std::string> backwards;
  for (std::int32_t position = 5; country.GetPreviousCountry(position, "", "Country"); --position) {
    backwards.push_back(toText(country.get_Country()));
  }
  EXPECT_EQ(backwards, (std::vector<std::string>{"Denmark", "chile", "Brazil", "austria"}));
  EXPECT_FALSE(country.GetNextCountry(0, "", "Country"));
  EXPECT_FALSE(country.GetPreviousCountry(1));
}

TEST_F(RegisterReading, GetLastRewritesTheOrder) {
  Country country;
  connect(country);
  std::string order;
  ASSERT_TRUE(country.GetLastCountry("", order));
  EXPECT_EQ(order, "Country DESC");
  EXPECT_EQ(country.get_Country(), Variant("Norway"));
  order = "Country DESC";
  ASSERT_TRUE(country.GetLastCountry("", order));
  EXPECT_EQ(country.get_Country(), Variant("austria"));
  order = "Country";
  ASSERT_TRUE(country.GetLastCountry("Country < 'd'", order));
  EXPECT_EQ(order, "Country DESC");
  EXPECT_EQ(country.get_Country(), Variant("chile"));
}

TEST_F(RegisterReading, PagesAndCounts) {
  Country country;
  connect(country);
  EXPECT_EQ(countriesOf(*country.GetEveryCountry("", "Country")),
            (std::vector<std::string>{"austria", "Brazil", "chile", "Denmark", "Norway"}));
  EXPECT_EQ(countriesOf(*country.GetEveryCountry("", "Country", Variant(1), Variant(2))),
            (std::vector<std::string>{"austria", "Brazil"}));
  EXPECT_EQ(countriesOf(*country.GetEveryCountry("", "Country", Variant(2), Variant(2))),
            (std::vector<std::string>{"chile", "Denmark"}));
  EXPECT_EQ(countriesOf(*country.GetEveryCountry("Country <> 'chile'", "Country", Variant(3))),
            (std::vector<std::string>{"Norway"}));
  EXPECT_EQ(country.GetEveryCountry("Country = 'Peru'")->Count(), 0);
  EXPECT_EQ(country.CountEveryCountry(), 5);
  EXPECT_EQ(country.CountEveryCountry("Country >= 'c'"), 3);
  EXPECT_THROW(country.CountEveryCountry("Colour = 1"), AutomationError);
  EXPECT_EQ(events_.count(), 0u);
  const auto rows = country.GetEveryCountry();
  EXPECT_EQ(std::dynamic_pointer_cast<Country>(rows->Item(1).asObject())->get_DSN(),
            register_.dsn());
}

TEST_F(RegisterReading, ErrorLogAndLogFileCannotWalk) {
  register_.run({"INSERT INTO [LogFile] VALUES ('tool', '2000-05-04 13:45:00', NULL, 'started')"});
  LogFile log;
  connect(log);
  ASSERT_TRUE(log.GetFirstLogFile());
  EXPECT_EQ(log.get_Message(), Variant("started"));
  EXPECT_TRUE(log.get_Username().isNull());
  EXPECT_EQ(log.get_LogDate(), Variant(Date::fromCivil({2000, 5, 4, 13, 45, 0})));
  EXPECT_FALSE(log.GetNextLogFile(1));
  EXPECT_EQ(events_.last().source, "GetNextLogFile");
  EXPECT_NE(
      events_.last().message.find(
          "SQL = SELECT TOP 1 * FROM [LogFile] WHERE  NOT IN  (SELECT TOP 1  FROM [LogFile])"),
      std::string::npos);
  EXPECT_FALSE(log.GetLastLogFile());
  EXPECT_EQ(events_.last().source, "GetFirstLogFile");
  EXPECT_EQ(log.GetEveryLogFile("", "", Variant(2))->Count(), 0);
  EXPECT_EQ(events_.last().source, "GetEveryLogFile");
  ErrorLog errors;
  connect(errors);
  EXPECT_FALSE(errors.GetPreviousErrorLog(3));
  EXPECT_EQ(events_.last().source, "GetPreviousErrorLog");
}

TEST_F(RegisterReading, AKeyWithAnApostropheBreaksTheStatement) {
  Country country;
  connect(country);
  country.put_Country("Cote d'Ivoire");
  EXPECT_FALSE(country.GetCountry());
  EXPECT_EQ(events_.last().source, "GetCountry");
  EXPECT_NE(
      events_.last().message.find("SQL = SELECT * FROM [Country] WHERE Country = 'Cote d'Ivoire'"),
      std::string::npos);
  EXPECT_FALSE(country.GetLastErrorMessage().empty());
}

TEST_F(RegisterReading, AnUnreachableRegisterFailsEveryReadingMethod) {
  Country country;
  country.put_DSN("Provider=SQLite;Data Source=" + (register_.folder() / "missing.db").string());
  EXPECT_FALSE(country.GetFirstCountry());
  EXPECT_TRUE(events_.last().message.ends_with("SQL = "));
  EXPECT_EQ(country.GetEveryCountry()->Count(), 0);
  EXPECT_EQ(events_.last().source, "GetEveryCountry");
  EXPECT_THROW(country.CountEveryCountry(), AutomationError);
  EXPECT_FALSE(std::filesystem::exists(register_.folder() / "missing.db"));
}

TEST_F(RegisterReading, TheTraceShowsEveryStatementSent) {
  const auto trace = register_.folder() / "trace.jsonl";
  setSqlTrace(trace.string());
  Country country;
  connect(country);
  country.GetFirstCountry("", "Country");
  country.GetCountry("Colour = 1");
  setSqlTrace("");
  country.CountEveryCountry();
  std::ifstream in(trace);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);)
    lines.push_back(line);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_NE(
      lines[0].find(
          R"("sql":"SELECT TOP 1 * FROM [Country] ORDER BY Country","ok":true,"elapsed_us":)"),
      std::string::npos);
  EXPECT_NE(lines[1].find(
                R"("sql":"SELECT TOP 1 * FROM [Country] WHERE Colour = 1","ok":false,"error":")"),
            std::string::npos);
}

TEST_F(RegisterReading, LateBoundCallsReachTheRegister) {
  const auto user = CreateObject("Varnock.Country");
  user->put_DSN(register_.dsn());
  DispatchArguments arguments{{}, {{1, Variant("Country")}, {0, Variant("Country <> 'Peru'")}}};
  const std::int32_t id = GetIDsOfNames(*user, {"GetEveryCountry"})[0];
  const Variant rows = Invoke(*user, id, kDispatchMethod, arguments);
  EXPECT_EQ(std::dynamic_pointer_cast<Collection>(rows.asObject())->Count(), 5);
  DispatchArguments count;
  EXPECT_EQ(Invoke(*user, GetIDsOfNames(*user, {"counteverycountry"})[0], kDispatchMethod, count),
            Variant(5));
}

}  // namespace
}  // namespace varnock
