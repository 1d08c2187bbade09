// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "catalogue/catalogue.h"
#include "record/record_internal.h"
#include "support/captured_events.h"
#include "varnock/automation_error.h"
#include "varnock/host.h"
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
    ASSERT_EQ(RecordInternal::columnCount(r), columns[i]) << names[i];
    for (std::size_t c = 0; c < RecordInternal::columnCount(r); ++c)
      EXPECT_TRUE(RecordInternal::column(r, c).isNull());
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

TEST(ColumnAssignment, NullOnARefusingColumnIsReportedByFieldName) {
  // Every column that refuses Null, by the field name its messages use.
  const std::string refusing =
      " Country.Country ErrorLog.DateCreated ErrorLog.UserId ErrorLog.ErrorNumber "
      "ErrorLog.ErrorDescription GroupCode.GroupCode GroupCode.Group "
      "GroupMember.GroupCode GroupMember.UserName LogFile.ProgramName LogFile.LogDate "
      "LogFile.Message Parm.Section Parm.KeyName Parm.Locked State.State User.UserName "
      "User.Lastname User.Country User.Password User.Email User.Authorized Zone.Zone "
      "Zone.Test ZoneAddress.Zone ZoneAddress.UserName ZoneAddress.Address "
      "ZoneAddress.CreationDate ZonePool.Zone ZonePool.Address ";
  testing::CapturedEvents events;
  std::size_t refused = 0;
  for (const auto& record : oneOfEach()) {
    const catalogue::Table& t = RecordInternal::table(*record);
    for (std::size_t c = 0; c < t.columns.size(); ++c) {
      const std::string field(t.columns[c].field);
      SCOPED_TRACE(std::string(t.name) + "." + field);
      const std::size_t before = events.count();
      RecordInternal::assign(*record, c, Variant("kept"));  // accepted by text columns only
      const Variant previous = RecordInternal::column(*record, c);
      RecordInternal::assign(*record, c, Variant::null());
      if (refusing.find(" " + std::string(t.name) + "." + field + " ") == std::string::npos) {
        EXPECT_TRUE(RecordInternal::column(*record, c).isNull());
        EXPECT_EQ(record->GetLastErrorMessage(), "");
        continue;
      }
      ++refused;
      const std::string message = "Property " + field + " cannot be set to NULL";
      EXPECT_EQ(RecordInternal::column(*record, c), previous);
      EXPECT_EQ(record->GetLastErrorMessage(), message);
      ASSERT_GT(events.count(), before);
      EXPECT_EQ(events.last().id, 94);
      EXPECT_EQ(events.last().source, field);
      EXPECT_EQ(events.last().message, "\r\n" + message);
    }
  }
  EXPECT_EQ(refused,
            static_cast<std::size_t>(std::count(refusing.begin(), refusing.end(), ' ')) - 1);
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

TEST(ColumnAssignment, StoresAcceptedValuesUnconvertedAndNamesTheSqlTypeOfRefusals) {
  struct Case {
    const char* table;
    const char* field;
    Variant value;
    const char* refusedAs;  // "" when the value is accepted
  };
  const Case cases[] = {
      {"ErrorLog", "ErrorNumber", Variant("42"), ""},
      {"ErrorLog", "ErrorNumber", Variant(""), "int"},
      {"ErrorLog", "ErrorNumber", Variant(), ""},  // Empty is not Null
      {"ZonePool", "Address", Variant("ten"), "int"},
      {"Parm", "Locked", Variant("True"), ""},
      {"Parm", "Locked", Variant(-1), ""},
      {"User", "Authorized", Variant(), ""},
      {"Zone", "Test", Variant("maybe"), "bit"},
      {"User", "DateCreated", Variant("May 4, 2000"), ""},
      {"ErrorLog", "DateCreated", Variant(), "smalldatetime"},  // Empty is judged as a date
      {"ZoneAddress", "CreationDate", Variant("yesterday"), "smalldatetime"},
      {"ErrorLog", "UserId", Variant(""), ""},
      {"User", "UserName", Variant(), ""},
  };
  testing::CapturedEvents events;
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.table) + "." + c.field + " = " + toText(c.value));
    const auto record = CreateObject(std::string("Varnock.") + c.table);
    const auto& columns = RecordInternal::table(*record).columns;
    std::size_t at = 0;
    while (columns[at].field != c.field)
      ++at;
    const std::size_t before = events.count();
    RecordInternal::assign(*record, at, c.value);
    if (*c.refusedAs == '\0') {
      EXPECT_EQ(RecordInternal::column(*record, at), c.value);
      EXPECT_EQ(record->GetLastErrorMessage(), "");
      EXPECT_EQ(events.count(), before);
      continue;
    }
    const std::string message = std::string("Cannot convert this value to ") + c.refusedAs;
    EXPECT_TRUE(RecordInternal::column(*record, at).isNull());
    EXPECT_EQ(record->GetLastErrorMessage(), message);
    ASSERT_EQ(events.count(), before + 1);
    EXPECT_EQ(events.last().id, 13);
    EXPECT_EQ(events.last().source, c.field);
    EXPECT_EQ(events.last().message, "\r\n" + message);
  }
  ErrorLog log;
  log.put_ErrorNumber("42");
  log.put_ErrorNumber("abc");
  EXPECT_EQ(log.get_ErrorNumber(), Variant("42"));  // a refusal keeps the old value
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
  EXPECT_THROW(RecordInternal::column(country, 1), AutomationError);
  EXPECT_THROW(RecordInternal::assign(country, 7, Variant("x")), AutomationError);
}

}  // namespace
}  // namespace varnock
