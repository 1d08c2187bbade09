// SPDX-License-Identifier: MIT
#include "relations/relation_statements.h"

#include <gtest/gtest.h>

namespace varnock::relations {
namespace {

using catalogue::table;

const catalogue::Relation& relation(std::string_view own, std::size_t position) {
  return table(own).relations[position];
}

TEST(RelationStatements, ParentLookups) {
  EXPECT_EQ(parentLookup(relation("GroupMember", 0), "ADM"),
            "SELECT * FROM [GroupCode] WHERE GroupCode = 'ADM'");
  EXPECT_EQ(parentLookup(relation("GroupMember", 1), "o'brien"),
            "SELECT * FROM [User] WHERE UserName = 'o'brien'");
  EXPECT_EQ(parentLookup(relation("ZoneAddress", 0), ""),
            "SELECT * FROM [User] WHERE UserName = ''");
  EXPECT_EQ(parentLookup(relation("ZoneAddress", 1), "Z1"),
            "SELECT * FROM [Zone] WHERE Zone = 'Z1'");
  EXPECT_EQ(parentLookup(relation("ZonePool", 0), "Z1"), "SELECT * FROM [Zone] WHERE Zone = 'Z1'");
}

TEST(RelationStatements, ChildFiltersOfEveryPair) {
  EXPECT_EQ(childFilter(relation("GroupCode", 0), "ADM", ""), "GroupCode = 'ADM'");
  EXPECT_EQ(childFilter(relation("User", 0), "jdoe", ""), "UserName = 'jdoe'");
  EXPECT_EQ(childFilter(relation("User", 1), "jdoe", "Address > 3"),
            "UserName = 'jdoe' AND Address > 3");
  EXPECT_EQ(childFilter(relation("Zone", 0), "Z1", ""), "Zone = 'Z1'");
  EXPECT_EQ(childFilter(relation("Zone", 1), "Z1", "Address > 10"), "Zone = 'Z1' AND Address > 10");
}

TEST(RelationStatements, DerivedHeadsAreSentAsTheyStand) {
  struct Case {
    std::string own;
    std::size_t position;
    std::string list, count;
  };
  const std::vector<Case> cases{
      {"GroupCode", 1,
       "SELECT * FROM [GroupCode], [GroupMember], [User]  WHERE [User].UserName = "
       "[GroupMember].UserName AND [GroupMember].GroupCode = [GroupCode].GroupCode AND "
       "[GroupCode].GroupCode = '",
       "SELECT Count(*) AS CountResultField FROM [User], [GroupMember], [GroupCode]  WHERE "
       "[User].UserName = [GroupMember].UserName AND [GroupMember].GroupCode = "
       "[GroupCode].GroupCode AND [GroupCode].GroupCode = '"},
      {"User", 2,
       "SELECT * FROM [GroupMember], [GroupCode]  WHERE [GroupCode].GroupCode = "
       "[GroupMember].GroupCode AND [GroupMember].UserName = '",
       "SELECT Count(*) AS CountResultField FROM [GroupCode], [GroupMember]  WHERE "
       "[GroupCode].GroupCode = [GroupMember].GroupCode AND [GroupMember].UserName = '"},
      {"User", 3,
       "SELECT * FROM [User], [ZoneAddress], [Zone]  WHERE [Zone].Zone = [ZoneAddress].Zone AND "
       "[ZoneAddress].UserName = [User].UserName AND [User].UserName = '",
       "SELECT Count(*) AS CountResultField FROM [Zone], [ZoneAddress], [User]  WHERE "
       "[Zone].Zone = [ZoneAddress].Zone AND [ZoneAddress].UserName = [User].UserName AND "
       "[User].UserName = '"},
      {"Zone", 2,
       "SELECT * FROM [ZoneAddress], [User]  WHERE [User].UserName = [ZoneAddress].UserName AND "
       "[ZoneAddress].Zone = '",
       "SELECT Count(*) AS CountResultField FROM [User], [ZoneAddress]  WHERE [User].UserName = "
       "[ZoneAddress].UserName AND [ZoneAddress].Zone = '"},
  };
  for (const Case& c : cases) {
    const auto& r = relation(c.own, c.position);
    EXPECT_EQ(derivedChildren(table(c.own), r, false, "K", "", ""), c.list + "K'") << c.own;
    EXPECT_EQ(derivedChildren(table(c.own), r, true, "K", "", ""), c.count + "K'") << c.own;
  }
  EXPECT_TRUE(
      derivedChildren(table("Zone"), relation("Zone", 2), false, "Z1", "Authorized = 1", "Lastname")
          .ends_with("[ZoneAddress].Zone = 'Z1' AND Authorized = 1 ORDER BY Lastname"));
  EXPECT_TRUE(derivedChildren(table("User"), relation("User", 2), true, "u", "", "Group")
                  .ends_with("[GroupMember].UserName = 'u' ORDER BY Group"));
}

}  // namespace
}  // namespace varnock::relations
