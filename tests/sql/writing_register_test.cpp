// SPDX-License-Identifier: MIT
// The writing operations against a real register file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "automation/text.h"
#include "support/back_end.h"
#include "support/captured_events.h"
#include "support/temp_register.h"
#include "varnock/conversions.h"
#include "varnock/sql_trace.h"
#include "varnock/varnock.h"

namespace varnock {
namespace {

class RegisterWriting : public ::testing::Test {
 protected:
  void SetUp() override {
    register_.run({"INSERT INTO [Country] VALUES ('Norway')"});
    setSqlTrace(trace().string());
  }
  void TearDown() override { setSqlTrace(""); }

  template <class T>
  void connect(T& record) {
    record.put_DSN(register_.dsn());
  }
  std::filesystem::path trace() const { return register_.folder() / "trace.jsonl"; }
  std::size_t statementsSent() const {
    std::ifstream in(trace());
    std::size_t lines = 0;
    for (std::string line; std::getline(in, line);)
      ++lines;
    return lines;
  }
  void fillUser(User& user, const std::string& name) {
    connect(user);
    user.put_Username(name);
    user.put_Lastname("Doe");
    user.put_Country("Norway");
    user.put_Password("secret");
    user.put_Email(name + "@example.org");
    user.put_Authorized(true);
  }

  testing::TempRegister register_;
  testing::CapturedEvents events_;
};

TEST_F(RegisterWriting, AddedRowsReadBackAsTheSameValues) {
  User user;
  fillUser(user, "o'brien");
  user.put_SiteType("web");
  user.put_Firstname("Jane");
  user.put_State("Oslo");
  user.put_Pagetopic("topic");
  user.put_Bio("");
  user.put_Graphic("g.png");
  user.put_Link("https://example.org");
  user.put_DateCreated("2000/5/4 13:45:29");
  user.put_AuthorisationDate(Date::fromCivil({2001, 2, 3, 4, 5, 30}));
  user.put_AuthorisationMessage("approved");
  user.put_REMOTE_ADDR("10.0.0.1");
  ASSERT_TRUE(user.AddUser()) << user.GetLastErrorMessage();

  User back;
  connect(back);
  back.put_Username("O'BRIEN");
  ASSERT_TRUE(back.GetUser("UserName = 'o''brien'"));
  EXPECT_EQ(back.get_Username(), Variant("o'brien"));
  EXPECT_EQ(back.get_Bio(), Variant(""));
  EXPECT_EQ(back.get_Authorized(), Variant(true));
  EXPECT_EQ(back.get_DateCreated(), Variant(Date::fromCivil({2000, 5, 4, 13, 45, 0})));
  EXPECT_EQ(back.get_AuthorisationDate(), Variant(Date::fromCivil({2001, 2, 3, 4, 6, 0})));
  EXPECT_EQ(back.get_REMOTE_ADDR(), Variant("10.0.0.1"));
  EXPECT_EQ(back.get_Email(), Variant("o'brien@example.org"));

  Zone zone;
  connect(zone);
  zone.put_Zone("North");
  zone.put_Test(0);
  ASSERT_TRUE(zone.AddZone());
  ZonePool pool;
  connect(pool);
  pool.put_Zone("North");
  pool.put_Address("42");
  ASSERT_TRUE(pool.AddZonePool());
  ASSERT_TRUE(zone.GetZone());
  EXPECT_EQ(zone.get_Test(), Variant(false));
  ASSERT_TRUE(pool.GetFirstZonePool());
  EXPECT_EQ(pool.get_Address(), Variant(42));
  EXPECT_EQ(events_.count(), 0u);
}

TEST_F(RegisterWriting, TheDatabaseRefusalsTakeTheErrorPath) {
  User user;
  fillUser(user, "jdoe");
  ASSERT_TRUE(user.AddUser());
  EXPECT_FALSE(user.AddUser());  // the key exists
  EXPECT_EQ(events_.last().source, "AddUser");
  EXPECT_NE(events_.last().message.find("SQL = INSERT INTO [User] ([UserName], [Lastname]"),
            std::string::npos);
  // The database's own words, whichever database it is.
  EXPECT_NE(lowerCase(user.GetLastErrorMessage()).find("unique"), std::string::npos);
  EXPECT_EQ(user.get_Username(), Variant("jdoe"));  // the object keeps its values

  GroupMember member;
  connect(member);
  member.put_GroupCode("NOSUCH");
  member.put_Username("jdoe");
  EXPECT_FALSE(member.AddGroupMember());
  EXPECT_NE(lowerCase(member.GetLastErrorMessage()).find("foreign key"), std::string::npos);

  User incomplete;
  connect(incomplete);
  incomplete.put_Username("nobody");
  EXPECT_FALSE(incomplete.AddUser());
  EXPECT_NE(lowerCase(incomplete.GetLastErrorMessage()).find("null"), std::string::npos);
  EXPECT_EQ(user.CountEveryUser(), 1);
}

TEST_F(RegisterWriting, ABooleanInANumberColumnTakesTheErrorPath) {
  // The Boolean renders as the bare word True; the register refuses it as the
  // server does, instead of storing SQLite's 1 for the automation's -1.
  Zone zone;
  connect(zone);
  zone.put_Zone("North");
  zone.put_Test(false);
  ASSERT_TRUE(zone.AddZone());
  for (const bool value : {true, false}) {
    ZonePool pool;
    connect(pool);
    pool.put_Zone("North");
    pool.put_Address(value);
    ASSERT_EQ(pool.get_Address(), Variant(value));  // the column check takes a Boolean
    EXPECT_FALSE(pool.AddZonePool());
    // The database's own words name the column it does not have.
    EXPECT_NE(lowerCase(pool.GetLastErrorMessage()).find(value ? "true" : "false"),
              std::string::npos)
        << pool.GetLastErrorMessage();
    EXPECT_EQ(events_.last().source, "AddZonePool");
  }
  ZonePool counter;
  connect(counter);
  EXPECT_EQ(counter.CountEveryZonePool(), 0);
}

TEST_F(RegisterWriting, NothingToWriteFailsWithoutSendingAStatement) {
  Country empty;
  connect(empty);
  const std::size_t before = statementsSent();
  EXPECT_FALSE(empty.AddCountry());
  EXPECT_EQ(events_.last().id, 5);
  EXPECT_EQ(events_.last().message, "\r\nInvalid procedure call or argument [Varnock] \r\nSQL = ");
  ErrorLog log;
  connect(log);
  log.put_DateCreated("5/4/2000");
  log.put_UserId("u");
  log.put_ErrorNumber(1);
  log.put_ErrorDescription("d");
  EXPECT_FALSE(log.UpdateErrorLog());
  EXPECT_EQ(log.GetLastErrorMessage(), "Invalid procedure call or argument");
  LogFile file;
  connect(file);
  EXPECT_FALSE(file.UpdateLogFile());
  EXPECT_EQ(events_.last().source, "UpdateLogFile");
  EXPECT_EQ(statementsSent(), before);
}

TEST_F(RegisterWriting, UpdateAddressesTheRowByItsCurrentKey) {
  Parm parm;
  connect(parm);
  parm.put_Section("Mail");
  parm.put_KeyName("Host");
  parm.put_Value("smtp.example.org");
  parm.put_Locked(false);
  ASSERT_TRUE(parm.AddParm());
  parm.put_Value(Variant::null());
  parm.put_Comment("it's local");
  parm.put_Locked(true);
  ASSERT_TRUE(parm.UpdateParm());

  Parm back;
  connect(back);
  back.put_Section("mail");
  back.put_KeyName("host");
  ASSERT_TRUE(back.GetParm());
  EXPECT_TRUE(back.get_Value().isNull());
  EXPECT_EQ(back.get_Comment(), Variant("it's local"));
  EXPECT_EQ(back.get_Locked(), Variant(true));

  parm.put_KeyName("Port");  // a new key names another row: there is none
  EXPECT_TRUE(parm.UpdateParm());
  EXPECT_EQ(parm.CountEveryParm("KeyName = 'Port'"), 0);
  EXPECT_EQ(events_.count(), 0u);
}

TEST_F(RegisterWriting, AnApostropheInAKeyBreaksUpdateAndDeleteButNotInsert) {
  Country country;
  connect(country);
  country.put_Country("Cote d'Ivoire");
  ASSERT_TRUE(country.AddCountry());
  EXPECT_EQ(country.CountEveryCountry("Country = 'Cote d''Ivoire'"), 1);
  EXPECT_FALSE(country.UpdateCountry());
  EXPECT_EQ(events_.last().source, "UpdateCountry");
  EXPECT_FALSE(country.DeleteCountry("Country = 'Cote d'Ivoire'"));
  EXPECT_EQ(events_.last().source, "DeleteCountry");
  EXPECT_FALSE(country.DeleteCountry());  // its lookup fails first
  EXPECT_EQ(events_.last().source, "GetCountry");
  EXPECT_EQ(country.CountEveryCountry(), 2);
}

TEST_F(RegisterWriting, AKeyThatReadsAsTwoLiteralsNeverReachesAnotherRow) {
  User obrien;
  fillUser(obrien, "O'Brien");
  ASSERT_TRUE(obrien.AddUser()) << obrien.GetLastErrorMessage();
  User intruder;
  fillUser(intruder, "O'N'Brien");
  intruder.put_Password("taken over");
  ASSERT_FALSE(intruder.UpdateUser());
  EXPECT_EQ(events_.last().source, "UpdateUser");
  User back;
  connect(back);
  ASSERT_TRUE(back.GetUser("UserName = 'O''Brien'"));
  EXPECT_EQ(back.get_Password(), Variant("secret"));
}

TEST_F(RegisterWriting, IntColumnsHoldWhatSqlServersIntHolds) {
  Zone zone;
  connect(zone);
  zone.put_Zone("North");
  zone.put_Test(false);
  ASSERT_TRUE(zone.AddZone());
  ZonePool pool;
  connect(pool);
  pool.put_Zone("North");
  // Beyond int's range: refused through the error path.
  for (const Variant& refused :
       {Variant(2147483648.0), Variant(-2147483649.0), Variant(1e308), Variant("2147483648")}) {
    SCOPED_TRACE(toText(refused));
    pool.put_Address(refused);
    ASSERT_EQ(pool.get_Address(), refused);  // the column's own check lets it through
    EXPECT_FALSE(pool.AddZonePool());
    EXPECT_EQ(events_.last().source, "AddZonePool");
    EXPECT_THAT(
        pool.GetLastErrorMessage(),
        ::testing::HasSubstr("Arithmetic overflow error converting expression to data type int."));
  }
  EXPECT_EQ(pool.CountEveryZonePool(), 0);
  // The ends of the range are kept; a fraction is cut towards zero.
  for (const Variant& kept : {Variant(2147483647), Variant(-2147483647 - 1), Variant(-2.75)}) {
    pool.put_Address(kept);
    ASSERT_TRUE(pool.AddZonePool()) << pool.GetLastErrorMessage();
  }
  std::vector<Variant> stored;
  const auto rows = pool.GetEveryZonePool("", "Address");
  for (const Variant& item : *rows) {
    stored.push_back(std::dynamic_pointer_cast<ZonePool>(item.asObject())->get_Address());
  }
  EXPECT_EQ(stored,
            (std::vector<Variant>{Variant(std::int32_t{-2147483647 - 1}), Variant(std::int32_t{-2}),
                                  Variant(std::int32_t{2147483647})}));
  // A change is held to the same range.
  EXPECT_THROW(register_.run({"UPDATE [ZonePool] SET [Address] = 4000000000 WHERE Address = -2"}),
               AutomationError);
  EXPECT_EQ(pool.CountEveryZonePool("Address = -2"), 1);
}

TEST_F(RegisterWriting, TextsHoldingNulCharactersAreStoredAndReadBackWhole) {
  using namespace std::string_literals;
  if (testing::backEndDiffers(testing::Difference::TextCannotHoldNul))
    GTEST_SKIP() << "this back end's texts cannot hold NUL characters";
  User user;
  fillUser(user, "nul\0user"s);
  user.put_Bio("\0starts, in\0side\0\0, ends\0"s);
  user.put_AuthorisationMessage("ntext\0too"s);
  ASSERT_TRUE(user.AddUser()) << user.GetLastErrorMessage();
  User back;
  connect(back);
  back.put_Username("nul\0user"s);
  ASSERT_TRUE(back.GetUser()) << back.GetLastErrorMessage();
  EXPECT_EQ(back.get_Bio(), Variant("\0starts, in\0side\0\0, ends\0"s));
  EXPECT_EQ(back.get_AuthorisationMessage(), Variant("ntext\0too"s));
  back.put_Bio("changed\0"s);
  ASSERT_TRUE(back.UpdateUser()) << back.GetLastErrorMessage();
  EXPECT_EQ(back.CountEveryUser("Bio = 'changed'"), 0);  // the NUL is part of the text
  ASSERT_TRUE(back.DeleteUser()) << back.GetLastErrorMessage();
  EXPECT_EQ(back.CountEveryUser(), 0);
}

TEST_F(RegisterWriting, LargeTextsAreWrittenComparedAndReadBackExactly) {
  using namespace std::string_literals;
  // Larger than any literal kept in a statement's text, with an apostrophe
  // and a NUL in one of them.
  const std::string plain(300 * 1024, 'p');
  const std::string odd =
      std::string(200 * 1024, 'q') + "O'Brien" +
      (testing::backEndDiffers(testing::Difference::TextCannotHoldNul) ? "end"s : "\0end"s);
  // ntext holds them; an nvarchar(255) would refuse them, as SQL Server does.
  for (const auto& [name, text] : {std::pair{"large", &plain}, std::pair{"odd", &odd}}) {
    User user;
    fillUser(user, name);
    user.put_AuthorisationMessage(*text);
    ASSERT_TRUE(user.AddUser()) << user.GetLastErrorMessage();
    User back;
    connect(back);
    back.put_Username(name);
    ASSERT_TRUE(back.GetUser()) << back.GetLastErrorMessage();
    EXPECT_TRUE(back.get_AuthorisationMessage() == Variant(*text));
  }
  // A large literal in a condition is the same text as the value stored.
  std::string escaped;
  for (const char c : odd)
    escaped += c == '\'' ? "''" : std::string(1, c);
  User counter;
  connect(counter);
  EXPECT_EQ(counter.CountEveryUser("AuthorisationMessage = '" + plain + "'"), 1);
  EXPECT_EQ(counter.CountEveryUser("AuthorisationMessage = '" + escaped + "'"), 1);
}

TEST_F(RegisterWriting, DeleteByKeyChecksFirstAndReloadsTheObject) {
  GroupCode group;
  connect(group);
  group.put_GroupCode("ADM");
  group.put_Group("Admins");
  group.put_Comment("first");
  ASSERT_TRUE(group.AddGroupCode());

  GroupCode other;
  connect(other);
  other.put_GroupCode("USR");
  const std::size_t before = statementsSent();
  EXPECT_FALSE(other.DeleteGroupCode());  // no such row: only the lookup is sent
  EXPECT_EQ(statementsSent(), before + 1);
  EXPECT_EQ(events_.count(), 0u);
  EXPECT_EQ(other.GetLastErrorMessage(), "");

  GroupCode byKey;
  connect(byKey);
  byKey.put_GroupCode("adm");
  ASSERT_TRUE(byKey.DeleteGroupCode());
  EXPECT_EQ(byKey.get_Comment(), Variant("first"));  // reloaded by the lookup
  EXPECT_EQ(byKey.CountEveryGroupCode(), 0);
}

TEST_F(RegisterWriting, DeleteByConditionRemovesEveryMatchingRow) {
  register_.run({"INSERT INTO [Zone] VALUES ('A', 1)", "INSERT INTO [Zone] VALUES ('B', 1)",
                 "INSERT INTO [Zone] VALUES ('C', 0)"});
  Zone zone;
  connect(zone);
  EXPECT_TRUE(zone.DeleteZone("Zone = 'Z'"));
  EXPECT_TRUE(zone.DeleteZone("Test = 1"));
  EXPECT_EQ(zone.CountEveryZone(), 1);
  EXPECT_FALSE(zone.DeleteZone(" "));
  EXPECT_EQ(events_.last().source, "DeleteZone");
  EXPECT_TRUE(events_.last().message.ends_with("SQL = DELETE FROM [Zone] WHERE  "));
}

}  // namespace
}  // namespace varnock
