#include <gtest/gtest.h>

#include <memory>

#include "catalogue/catalogue.h"
#include "support/captured_events.h"
#include "varnock/automation_error.h"
#include "varnock/varnock.h"

namespace varnock {
namespace {

std::vector<std::unique_ptr<Record>> oneOfEach() {
  std::vector<std::unique_ptr<Record>> all;
  all.push_back(std::make_unique<Country>());
  all.push_back(std::make_unique<ErrorLog>());
  all.push_back(std::make_unique<GroupCode>());
  all.push_back(std::make_unique<GroupMember>());
  all.push_back(std::make_unique<LogFile>());
  all.push_back(std::make_unique<Parm>());
  all.push_back(std::make_unique<State>());
  all.push_back(std::make_unique<User>());
  all.push_back(std::make_unique<Zone>());
  all.push_back(std::make_unique<ZoneAddress>());
  all.push_back(std::make_unique<ZonePool>());
  return all;
}

TEST(NewRecord, StartsWithTheDefaultConnectionAndNullColumns) {
  const std::vector<std::string> names{"Country", "ErrorLog",    "GroupCode", "GroupMember",
                                       "LogFile", "Parm",        "State",     "User",
                                       "Zone",    "ZoneAddress", "ZonePool"};
  const std::vector<std::size_t> columns{1, 5, 3, 2, 4, 5, 1, 17, 2, 4, 2};
  const auto all = oneOfEach();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Record& r = *all[i];
    EXPECT_EQ(r.GetTableName(), names[i]);
    EXPECT_EQ(r.get_DSN(), Record::defaultConnectionString());
    EXPECT_EQ(r.GetLastErrorMessage(), "");
    ASSERT_EQ(r.columnCount(), columns[i]) << names[i];
    for (std::size_t c = 0; c < r.columnCount(); ++c)
      EXPECT_TRUE(r.column(c).isNull());
  }
}

TEST(NewRecord, DefaultConnectionStringIsKeptToTheCharacter) {
  const std::string& dsn = Record::defaultConnectionString();
  EXPECT_EQ(dsn,
            "Provider=SQLOLEDB.1;Initial Catalog=Tolvane_Register;Data Source=(local);"
            "Current Language=us_english;Use Procedure for Prepare=1;Auto Translate=True;"
            "Packet Size=4096;" +
                std::string(4, ' ') + "sa" + std::string(12, ' '));
}

TEST(Dsn, IsReplacedUncheckedAndLeavesTheMessage) {
  testing::CapturedEvents events;
  User user;
  user.put_Authorized("maybe");
  user.put_DSN("");
  EXPECT_EQ(user.get_DSN(), "");
  EXPECT_EQ(user.GetLastErrorMessage(), "Cannot convert this value to bit");
  user.put_DSN("Provider=SQLite;Data Source=x.db");
  EXPECT_EQ(user.get_DSN(), "Provider=SQLite;Data Source=x.db");
  EXPECT_EQ(User().get_DSN(), Record::defaultConnectionString());  // others keep the default
}

struct Refusal {
  std::string table;
  std::string property;
  std::string source;
};

TEST(ColumnAssignment, NullOnARefusingColumnIsReportedByFieldName) {
  // Every column that refuses Null, with the name its messages use.
  const std::vector<Refusal> refusals{{"Country", "Country", "Country"},
                                      {"ErrorLog", "DateCreated", "DateCreated"},
                                      {"ErrorLog", "UserId", "UserId"},
                                      {"ErrorLog", "ErrorNumber", "ErrorNumber"},
                                      {"ErrorLog", "ErrorDescription", "ErrorDescription"},
                                      {"GroupCode", "GroupCode", "GroupCode"},
                                      {"GroupCode", "Group", "Group"},
                                      {"GroupMember", "GroupCode", "GroupCode"},
                                      {"GroupMember", "Username", "UserName"},
                                      {"LogFile", "ProgramName", "ProgramName"},
                                      {"LogFile", "LogDate", "LogDate"},
                                      {"LogFile", "Message", "Message"},
                                      {"Parm", "Section", "Section"},
                                      {"Parm", "KeyName", "KeyName"},
                                      {"Parm", "Locked", "Locked"},
                                      {"State", "State", "State"},
                                      {"User", "Username", "UserName"},
                                      {"User", "Lastname", "Lastname"},
                                      {"User", "Country", "Country"},
                                      {"User", "Password", "Password"},
                                      {"User", "Email", "Email"},
                                      {"User", "Authorized", "Authorized"},
                                      {"Zone", "Zone", "Zone"},
                                      {"Zone", "Test", "Test"},
                                      {"ZoneAddress", "Zone", "Zone"},
                                      {"ZoneAddress", "Username", "UserName"},
                                      {"ZoneAddress", "Address", "Address"},
                                      {"ZoneAddress", "CreationDate", "CreationDate"},
                                      {"ZonePool", "Zone", "Zone"},
                                      {"ZonePool", "Address", "Address"}};
  testing::CapturedEvents events;
  std::size_t refusing = 0;
  for (const auto& record : oneOfEach()) {
    const catalogue::Table& t = record->table();
    for (std::size_t c = 0; c < t.columns.size(); ++c) {
      const std::string property(t.columns[c].property);
      const auto expected = std::find_if(refusals.begin(), refusals.end(), [&](const Refusal& r) {
        return r.table == t.name && r.property == property;
      });
      const std::size_t before = events.count();
      record->assign(c, Variant("kept"));  // accepted by text columns only
      const Variant previous = record->column(c);
      record->assign(c, Variant::null());
      if (expected == refusals.end()) {
        EXPECT_TRUE(record->column(c).isNull()) << t.name << "." << property;
        EXPECT_EQ(record->GetLastErrorMessage(), "") << t.name << "." << property;
        continue;
      }
      ++refusing;
      const std::string message = "Property " + expected->source + " cannot be set to NULL";
      EXPECT_EQ(record->column(c), previous) << t.name << "." << property;
      EXPECT_EQ(record->GetLastErrorMessage(), message);
      ASSERT_GT(events.count(), before);
      EXPECT_EQ(events.last().id, 94);
      EXPECT_EQ(events.last().source, expected->source);
      EXPECT_EQ(events.last().message, "\r\n" + message);
    }
  }
  EXPECT_EQ(refusing, refusals.size());
}

TEST(ColumnAssignment, NullOnANullableColumnClearsTheMessage) {
  testing::CapturedEvents events;
  ErrorLog log;
  log.put_ErrorNumber("abc");
  ASSERT_EQ(log.GetLastErrorMessage(), "Cannot convert this value to int");
  log.put_Message(Variant::null());
  EXPECT_TRUE(log.get_Message().isNull());
  EXPECT_EQ(log.GetLastErrorMessage(), "");
  EXPECT_EQ(events.count(), 1u);

  LogFile file;
  file.put_Username(Variant::null());
  EXPECT_EQ(file.GetLastErrorMessage(), "");
  EXPECT_EQ(events.count(), 1u);
}

TEST(ColumnAssignment, TypeRefusalsNameTheSqlType) {
  testing::CapturedEvents events;
  ZoneAddress address;
  address.put_CreationDate("yesterday");
  EXPECT_EQ(address.GetLastErrorMessage(), "Cannot convert this value to smalldatetime");
  EXPECT_EQ(events.last().id, 13);
  EXPECT_EQ(events.last().source, "CreationDate");
  EXPECT_EQ(events.last().message, "\r\nCannot convert this value to smalldatetime");

  ZonePool pool;
  pool.put_Address("ten");
  EXPECT_EQ(pool.GetLastErrorMessage(), "Cannot convert this value to int");
  Zone zone;
  zone.put_Test("maybe");
  EXPECT_EQ(zone.GetLastErrorMessage(), "Cannot convert this value to bit");
  EXPECT_EQ(events.last().source, "Test");
  EXPECT_TRUE(zone.get_Test().isNull());
}

TEST(ColumnAssignment, StoresAcceptedValuesUnconverted) {
  testing::CapturedEvents events;
  ErrorLog log;
  log.put_ErrorNumber("42");
  EXPECT_EQ(log.get_ErrorNumber(), Variant("42"));
  log.put_ErrorNumber("abc");
  EXPECT_EQ(log.get_ErrorNumber(), Variant("42"));  // the old value stays

  Parm parm;
  parm.put_Locked("True");
  EXPECT_EQ(parm.get_Locked(), Variant("True"));
  parm.put_Locked(Variant(-1));
  EXPECT_EQ(parm.get_Locked(), Variant(-1));

  User user;
  user.put_DateCreated("May 4, 2000");
  EXPECT_EQ(user.get_DateCreated(), Variant("May 4, 2000"));
  EXPECT_EQ(events.count(), 1u);
}

TEST(ColumnAssignment, EmptyIsNotNull) {
  testing::CapturedEvents events;
  User user;
  user.put_Username(Variant());
  EXPECT_TRUE(user.get_Username().isEmpty());
  user.put_Authorized(Variant());
  EXPECT_TRUE(user.get_Authorized().isEmpty());
  ErrorLog log;
  log.put_ErrorNumber(Variant());
  EXPECT_TRUE(log.get_ErrorNumber().isEmpty());
  EXPECT_EQ(events.count(), 0u);
  log.put_DateCreated(Variant());  // judged as a date, and refused
  EXPECT_EQ(log.GetLastErrorMessage(), "Cannot convert this value to smalldatetime");
  EXPECT_TRUE(log.get_DateCreated().isNull());
}

TEST(ColumnAssignment, EmptyTextDependsOnTheColumnType) {
  testing::CapturedEvents events;
  ErrorLog log;
  log.put_UserId("");
  EXPECT_EQ(log.get_UserId(), Variant(""));
  EXPECT_EQ(log.GetLastErrorMessage(), "");
  log.put_ErrorNumber("");
  EXPECT_EQ(log.GetLastErrorMessage(), "Cannot convert this value to int");
}

TEST(ColumnAssignment, ASuccessLeavesAnEarlierRefusalInPlace) {
  testing::CapturedEvents events;
  User user;
  user.put_Username(Variant::null());
  user.put_Lastname("Smith");
  EXPECT_EQ(user.get_Lastname(), Variant("Smith"));
  EXPECT_EQ(user.GetLastErrorMessage(), "Property UserName cannot be set to NULL");
}

TEST(ColumnAssignment, AFailedEventWriteIsRaisedAfterTheMessageIsStored) {
  testing::CapturedEvents events;
  events.failWritesWith(28);  // ENOSPC
  Country country;
  country.put_Country("Norway");
  try {
    country.put_Country(Variant::null());
    FAIL() << "the failed write was swallowed";
  } catch (const AutomationError& e) {
    EXPECT_EQ(static_cast<std::uint32_t>(e.number()), 0x8004001Cu);
    EXPECT_EQ(e.description(), "ReportEvent() failed");
    EXPECT_EQ(e.source(), "Event Log Component");
  }
  EXPECT_EQ(country.GetLastErrorMessage(), "Property Country cannot be set to NULL");
  EXPECT_EQ(country.get_Country(), Variant("Norway"));
}

TEST(ColumnAssignment, PositionsOutsideTheTableAreInvalid) {
  Country country;
  EXPECT_THROW(country.column(1), AutomationError);
  EXPECT_THROW(country.assign(7, Variant("x")), AutomationError);
}

}  // namespace
}  // namespace varnock
