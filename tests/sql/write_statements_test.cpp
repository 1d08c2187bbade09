// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "support/failure_of.h"

#include "sql/literals.h"
#include "sql/statements.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"

namespace varnock::sql {
namespace {

using catalogue::table;

Variant date(int y, int m, int d, int h = 0, int mi = 0, int s = 0) {
  return Variant(Date::fromCivil({y, m, d, h, mi, s}));
}

std::vector<Variant> nulls(std::string_view name) {
  return std::vector<Variant>(table(name).columns.size(), Variant::null());
}

TEST(Literals, DatesBitsAndPadding) {
  EXPECT_EQ(twoDigits(""), "00");
  EXPECT_EQ(twoDigits("7"), "07");
  EXPECT_EQ(twoDigits("123"), "123");
  EXPECT_EQ(dateText(date(2000, 5, 4, 13, 45), true), "2000/5/4 13:45:00PM");
  EXPECT_EQ(dateText(date(2000, 5, 4, 13, 45), false), "2000/5/4 13:45:00");
  EXPECT_EQ(dateText(date(2000, 5, 4, 9, 5, 9), true), "2000/5/4 09:05:09AM");
  EXPECT_EQ(dateText(date(2000, 5, 4), true), "2000/5/4 00:00:00AM");
  EXPECT_EQ(dateText(Variant("May 4, 2000 12:00 PM"), true), "2000/5/4 12:00:00PM");
  EXPECT_EQ(dateText(Variant(Date{0.0}), true), std::nullopt);
  EXPECT_EQ(dateText(Variant(Date{-3.5}), false), std::nullopt);
  EXPECT_EQ(testing::failureOf([] { dateText(Variant("yesterday"), true); }), 13);
  for (const Variant& v : {Variant(true), Variant(-1), Variant("True"), Variant(" true "),
                           Variant("-1"), Variant(-1.0)}) {
    EXPECT_EQ(bitText(v), "1") << toText(v);
  }
  for (const Variant& v : {Variant(false), Variant(0), Variant(1), Variant("1"), Variant("yes"),
                           Variant(), Variant(2.5), Variant("False")}) {
    EXPECT_EQ(bitText(v), "0") << toText(v);
  }
  EXPECT_EQ(withoutLast("a, b, ", 2), "a, b");
  EXPECT_EQ(withoutLast("ab", 2), "");
  EXPECT_EQ(testing::failureOf([] { withoutLast("a", 2); }), 5);
}

TEST(Insert, WritesOnlyColumnsHoldingAValue) {
  std::vector<Variant> log = nulls("ErrorLog");
  log[0] = date(2000, 5, 4, 13, 45);
  log[1] = Variant("o'brien");
  log[2] = Variant(-42);
  log[3] = Variant("");
  EXPECT_EQ(insert(table("ErrorLog"), log),
            "INSERT INTO [ErrorLog] ([DateCreated], [UserId], [ErrorNumber], [ErrorDescription]) "
            "VALUES ('2000/5/4 13:45:00PM', 'o''brien', -42, '')");
  log[0] = Variant(Date{0.0});  // day zero counts as no date
  log[2] = Variant("");         // a number with empty text leaves only its separator
  EXPECT_EQ(insert(table("ErrorLog"), log),
            "INSERT INTO [ErrorLog] ([UserId], [ErrorNumber], [ErrorDescription]) VALUES "
            "('o''brien', , '')");
}

TEST(Insert, EveryClassUsesItsBracketedFieldNames) {
  std::vector<Variant> parm = nulls("Parm");
  parm = {Variant("Mail"), Variant("Host"), Variant::null(), Variant("x"), Variant(true)};
  EXPECT_EQ(insert(table("Parm"), parm),
            "INSERT INTO [Parm] ([Section], [KeyName], [Comment], [Locked]) VALUES ('Mail', "
            "'Host', 'x', 1)");
  EXPECT_EQ(insert(table("Zone"), {Variant("North"), Variant(false)}),
            "INSERT INTO [Zone] ([Zone], [Test]) VALUES ('North', 0)");
  EXPECT_EQ(insert(table("GroupCode"), {Variant("ADM"), Variant("Admins"), Variant::null()}),
            "INSERT INTO [GroupCode] ([GroupCode], [Group]) VALUES ('ADM', 'Admins')");
  EXPECT_EQ(insert(table("GroupMember"), {Variant("ADM"), Variant("jdoe")}),
            "INSERT INTO [GroupMember] ([GroupCode], [UserName]) VALUES ('ADM', 'jdoe')");
  EXPECT_EQ(
      insert(table("LogFile"), {Variant("tool"), date(2000, 5, 4), Variant("jdoe"), Variant("ok")}),
      "INSERT INTO [LogFile] ([ProgramName], [LogDate], [Username], [Message]) VALUES "
      "('tool', '2000/5/4 00:00:00AM', 'jdoe', 'ok')");
  EXPECT_EQ(insert(table("Country"), {Variant("Cote d'Ivoire")}),
            "INSERT INTO [Country] ([Country]) VALUES ('Cote d''Ivoire')");
  EXPECT_EQ(insert(table("State"), {Variant("Oslo")}),
            "INSERT INTO [State] ([State]) VALUES ('Oslo')");
  EXPECT_EQ(insert(table("ZoneAddress"),
                   {Variant("North"), Variant("jdoe"), Variant("7"), date(2000, 5, 4, 9, 5, 9)}),
            "INSERT INTO [ZoneAddress] ([Zone], [UserName], [Address], [CreationDate]) VALUES "
            "('North', 'jdoe', 7, '2000/5/4 09:05:09AM')");
  EXPECT_EQ(insert(table("ZonePool"), {Variant("North"), Variant(7)}),
            "INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('North', 7)");
  std::vector<Variant> user = nulls("User");
  user[0] = Variant("jdoe");
  user[12] = date(2000, 5, 4, 13, 45);
  user[13] = Variant(true);
  user[16] = Variant("10.0.0.1");
  EXPECT_EQ(insert(table("User"), user),
            "INSERT INTO [User] ([UserName], [DateCreated], [Authorized], [REMOTE_ADDR]) VALUES "
            "('jdoe', '2000/5/4 13:45:00PM', 1, '10.0.0.1')");
}

TEST(Insert, NothingToWriteIsAnInvalidArgument) {
  EXPECT_EQ(testing::failureOf([] { insert(table("User"), nulls("User")); }), 5);
  EXPECT_EQ(testing::failureOf([] {
              insert(table("LogFile"),
                     {Variant::null(), Variant(Date{0.0}), Variant::null(), Variant::null()});
            }),
            5);
  EXPECT_EQ(
      testing::failureOf([] {
        insert(table("ZoneAddress"), {Variant("N"), Variant("u"), Variant(1), Variant("soon")});
      }),
      13);
}

TEST(Update, AssignsEveryColumnAndNamesTheRowByItsKey) {
  EXPECT_EQ(update(table("Country"), {Variant("Chad")}),
            "UPDATE [Country] SET [Country] = 'Chad' WHERE [Country] = 'Chad'");
  EXPECT_EQ(update(table("Parm"),
                   {Variant("O'Mail"), Variant("Host"), Variant::null(), Variant(""), Variant(-1)}),
            "UPDATE [Parm] SET [Section] = 'O''Mail', [KeyName] = 'Host', [Value] = NULL, "
            "[Comment] = '', [Locked] = 1 WHERE [Section] = 'O'Mail' AND [KeyName] = 'Host'");
  EXPECT_EQ(update(table("ZonePool"), {Variant("North"), Variant(7)}),
            "UPDATE [ZonePool] SET [Zone] = 'North', [Address] = 7 WHERE [Zone] = 'North' AND "
            "[Address] = '7'");
  EXPECT_EQ(
      update(table("ZoneAddress"), {Variant("N"), Variant("u"), Variant(""), Variant(Date{0})}),
      "UPDATE [ZoneAddress] SET [Zone] = 'N', [UserName] = 'u', [Address] = NULL, "
      "[CreationDate] = NULL WHERE [Zone] = 'N' AND [UserName] = 'u'");
  EXPECT_EQ(update(table("Zone"), {Variant("N"), Variant::null()}),
            "UPDATE [Zone] SET [Zone] = 'N', [Test] = NULL WHERE [Zone] = 'N'");
  EXPECT_EQ(update(table("GroupMember"), {Variant("ADM"), Variant::null()}),
            "UPDATE [GroupMember] SET [GroupCode] = 'ADM', [UserName] = NULL WHERE [GroupCode] = "
            "'ADM' AND [UserName] = ''");
  EXPECT_EQ(update(table("GroupCode"), {Variant("ADM"), Variant("Admins"), Variant::null()}),
            "UPDATE [GroupCode] SET [GroupCode] = 'ADM', [Group] = 'Admins', [Comment] = NULL "
            "WHERE [GroupCode] = 'ADM'");
  EXPECT_EQ(update(table("State"), {Variant("Oslo")}),
            "UPDATE [State] SET [State] = 'Oslo' WHERE [State] = 'Oslo'");
  std::vector<Variant> user = nulls("User");
  user[0] = Variant("jdoe");
  user[12] = date(2000, 5, 4, 13, 45);
  user[13] = Variant(false);
  EXPECT_EQ(update(table("User"), user),
            "UPDATE [User] SET [UserName] = 'jdoe', [SiteType] = NULL, [Firstname] = NULL, "
            "[Lastname] = NULL, [Country] = NULL, [State] = NULL, [Password] = NULL, [Email] = "
            "NULL, [Pagetopic] = NULL, [Bio] = NULL, [Graphic] = NULL, [Link] = NULL, "
            "[DateCreated] = '2000/5/4 13:45:00', [Authorized] = 0, [AuthorisationDate] = NULL, "
            "[AuthorisationMessage] = NULL, [REMOTE_ADDR] = NULL WHERE [UserName] = 'jdoe'");
}

TEST(Update, TablesWithoutAKeyAlwaysFail) {
  EXPECT_EQ(testing::failureOf([] {
              update(table("ErrorLog"),
                     {date(2000, 1, 1), Variant("u"), Variant(1), Variant("d"), Variant("m")});
            }),
            5);
  EXPECT_EQ(testing::failureOf([] { update(table("LogFile"), nulls("LogFile")); }), 5);
}

TEST(Delete, KeyConditionsAreUnescapedWithTwoBlanksAfterAnd) {
  EXPECT_EQ(deleteByKey(table("GroupMember"), {Variant("ADM"), Variant("jdoe")}),
            "DELETE FROM [GroupMember] WHERE GroupCode = 'ADM' AND  UserName = 'jdoe'");
  EXPECT_EQ(deleteByKey(table("Country"), {Variant("Cote d'Ivoire")}),
            "DELETE FROM [Country] WHERE Country = 'Cote d'Ivoire'");
  EXPECT_EQ(deleteByKey(table("ErrorLog"), {date(2000, 5, 4, 13, 45), Variant("u"), Variant(42),
                                            Variant("d"), Variant::null()}),
            "DELETE FROM [ErrorLog] WHERE DateCreated = '5/4/2000 1:45:00 PM' AND  UserId = 'u' "
            "AND  ErrorNumber = '42' AND  ErrorDescription = 'd' AND  Message = ''");
  EXPECT_EQ(deleteByKey(table("ZonePool"), {Variant("N"), Variant(7)}),
            "DELETE FROM [ZonePool] WHERE Zone = 'N' AND  Address = '7'");
  EXPECT_EQ(deleteWhere(table("User"), " "), "DELETE FROM [User] WHERE  ");

  // The other classes: each key column's value is "v" + its position.
  const std::vector<std::pair<std::string, std::string>> others{
      {"GroupCode", "DELETE FROM [GroupCode] WHERE GroupCode = 'v0'"},
      {"LogFile",
       "DELETE FROM [LogFile] WHERE ProgramName = 'v0' AND  LogDate = 'v1' AND  Username = 'v2' "
       "AND  Message = 'v3'"},
      {"Parm", "DELETE FROM [Parm] WHERE Section = 'v0' AND  KeyName = 'v1'"},
      {"State", "DELETE FROM [State] WHERE State = 'v0'"},
      {"User", "DELETE FROM [User] WHERE UserName = 'v0'"},
      {"Zone", "DELETE FROM [Zone] WHERE Zone = 'v0'"},
      {"ZoneAddress", "DELETE FROM [ZoneAddress] WHERE Zone = 'v0' AND  UserName = 'v1'"},
  };
  for (const auto& [name, expected] : others) {
    std::vector<Variant> values = nulls(name);
    for (std::size_t i = 0; i < values.size(); ++i)
      values[i] = Variant("v" + std::to_string(i));
    EXPECT_EQ(deleteByKey(table(name), values), expected) << name;
  }
}

}  // namespace
}  // namespace varnock::sql
