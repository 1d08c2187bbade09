// SPDX-License-Identifier: MIT
#include "sql/statements.h"

#include <gtest/gtest.h>

#include <map>

namespace varnock::sql {
namespace {

using catalogue::table;

struct KeyForm {
  std::string head;
  std::vector<std::string> furtherPieces;
};

TEST(Statements, KeyLookupOfEveryClass) {
  const std::map<std::string, KeyForm> forms{
      {"Country", {"SELECT * FROM [Country] WHERE Country = '", {}}},
      {"ErrorLog",
       {"SELECT * FROM [ErrorLog] WHERE DateCreated = '",
        {"' AND  UserId = '", "' AND  ErrorNumber = '", "' AND  ErrorDescription = '",
         "' AND  Message = '"}}},
      {"GroupCode", {"SELECT * FROM [GroupCode] WHERE GroupCode = '", {}}},
      {"GroupMember", {"SELECT * FROM [GroupMember] WHERE GroupCode = '", {"' AND  UserName = '"}}},
      {"LogFile",
       {"SELECT * FROM [LogFile] WHERE ProgramName = '",
        {"' AND  LogDate = '", "' AND  Username = '", "' AND  Message = '"}}},
      {"Parm", {"SELECT * FROM [Parm] WHERE Section = '", {"' AND  KeyName = '"}}},
      {"State", {"SELECT * FROM [State] WHERE State = '", {}}},
      {"User", {"SELECT * FROM [User] WHERE UserName = '", {}}},
      {"Zone", {"SELECT * FROM [Zone] WHERE Zone = '", {}}},
      {"ZoneAddress", {"SELECT * FROM [ZoneAddress] WHERE Zone = '", {"' AND  UserName = '"}}},
      {"ZonePool", {"SELECT * FROM [ZonePool] WHERE Zone = '", {"' AND  Address = '"}}},
  };
  for (const auto& [name, form] : forms) {
    std::vector<std::string> values;
    std::string expected = form.head + "v0";
    values.push_back("v0");
    for (std::size_t i = 0; i < form.furtherPieces.size(); ++i) {
      values.push_back("v" + std::to_string(i + 1));
      expected += form.furtherPieces[i] + values.back();
    }
    EXPECT_EQ(keyLookup(table(name), values), expected + "'") << name;
  }
  EXPECT_EQ(keyLookup(table("User"), {"o'brien"}),
            "SELECT * FROM [User] WHERE UserName = 'o'brien'");
}

TEST(Statements, ConditionLookupAndOrder) {
  std::string s = conditionLookup(table("User"), "Lastname = 'Doe'");
  EXPECT_EQ(s, "SELECT TOP 1 * FROM [User] WHERE Lastname = 'Doe'");
  appendOrder(s, "");
  appendOrder(s, "Firstname DESC");
  EXPECT_EQ(s, "SELECT TOP 1 * FROM [User] WHERE Lastname = 'Doe' ORDER BY Firstname DESC");
}

TEST(Statements, FirstRow) {
  EXPECT_EQ(first(table("Country"), "", ""), "SELECT TOP 1 * FROM [Country]");
  EXPECT_EQ(first(table("Country"), "c", ""), "SELECT TOP 1 * FROM [Country] WHERE c");
  EXPECT_EQ(first(table("Country"), "", "o"), "SELECT TOP 1 * FROM [Country] ORDER BY o");
  EXPECT_EQ(first(table("Country"), "c", "o"), "SELECT TOP 1 * FROM [Country] WHERE c ORDER BY o");
}

TEST(Statements, WalkTailsByWhichClausesAreGiven) {
  const std::string head =
      "SELECT TOP 1 * FROM [Country] WHERE Country NOT IN  (SELECT TOP 3 Country FROM [Country]";
  EXPECT_EQ(afterSkipping(table("Country"), "3", "", ""), head + ")");
  EXPECT_EQ(afterSkipping(table("Country"), "3", "c", ""), head + " WHERE c) AND c");
  EXPECT_EQ(afterSkipping(table("Country"), "3", "", "o"), head + " ORDER BY o) ORDER BY o");
  EXPECT_EQ(afterSkipping(table("Country"), "3", "c", "o"),
            head + " WHERE c ORDER BY o) AND c ORDER BY o");
}

TEST(Statements, WalkPiecesOfEveryClass) {
  const std::map<std::string, std::pair<std::string, std::string>> pieces{
      {"Country", {" WHERE Country NOT IN ", " Country FROM [Country]"}},
      {"ErrorLog", {" WHERE  NOT IN ", "  FROM [ErrorLog]"}},
      {"GroupCode", {" WHERE GroupCode NOT IN ", " GroupCode FROM [GroupCode]"}},
      {"GroupMember", {" WHERE GroupCode NOT IN ", " GroupCode FROM [GroupMember]"}},
      {"LogFile", {" WHERE  NOT IN ", "  FROM [LogFile]"}},
      {"Parm", {" WHERE Section NOT IN ", " Section FROM [Parm]"}},
      {"State", {" WHERE State NOT IN ", " State FROM [State]"}},
      {"User", {" WHERE UserName NOT IN ", " UserName FROM [User]"}},
      {"Zone", {" WHERE Zone NOT IN ", " Zone FROM [Zone]"}},
      {"ZoneAddress", {" WHERE Zone NOT IN ", " Zone FROM [ZoneAddress]"}},
      {"ZonePool", {" WHERE Zone NOT IN ", " Zone FROM [ZonePool]"}},
  };
  for (const auto& [name, piece] : pieces) {
    EXPECT_EQ(
        afterSkipping(table(name), "7", "", ""),
        "SELECT TOP 1 * FROM [" + name + "]" + piece.first + " (SELECT TOP 7" + piece.second + ")")
        << name;
    EXPECT_EQ(every(table(name), "", "", "", ""), "SELECT * FROM [" + name + "]");
    EXPECT_EQ(every(table(name), "5", "", "", ""), "SELECT TOP 5 * FROM [" + name + "]");
    EXPECT_EQ(count(table(name), ""), "SELECT Count(*) AS CountResultField FROM [" + name + "]");
  }
}

TEST(Statements, EveryRowWithLimitPagingConditionAndOrder) {
  EXPECT_EQ(every(table("User"), "", "", "c", "o"), "SELECT * FROM [User] WHERE c ORDER BY o");
  EXPECT_EQ(every(table("User"), "10", "2", "c", "o"),
            "SELECT TOP 10 * FROM [User] WHERE UserName NOT IN  (SELECT TOP 2 UserName FROM "
            "[User] WHERE c ORDER BY o) AND c ORDER BY o");
  EXPECT_EQ(every(table("User"), "", "2.5", "", ""),
            "SELECT * FROM [User] WHERE UserName NOT IN  (SELECT TOP 2.5 UserName FROM [User])");
  EXPECT_EQ(count(table("User"), "Country = 'NO'"),
            "SELECT Count(*) AS CountResultField FROM [User] WHERE Country = 'NO'");
}

TEST(Statements, ReversedOrderSwapsDirectionsAsText) {
  const auto& country = table("Country");
  EXPECT_EQ(reversedOrder(country, ""), "Country DESC");
  EXPECT_EQ(reversedOrder(country, "Country"), "Country DESC");
  EXPECT_EQ(reversedOrder(country, "Country asc"), "Country DESC");
  EXPECT_EQ(reversedOrder(country, "Country DESC"), "Country ASC");
  EXPECT_EQ(reversedOrder(country, "Name, Country desc"), "Name, Country ASC");
  EXPECT_EQ(reversedOrder(country, "A ASC, B Desc"), "A DESC, B ASC");
  EXPECT_EQ(reversedOrder(country, "Zone, ascent"), "Zone, DESCent");
  EXPECT_EQ(reversedOrder(table("ErrorLog"), ""), " DESC");
  EXPECT_EQ(reversedOrder(table("User"), ""), "UserName DESC");
}

}  // namespace
}  // namespace varnock::sql
