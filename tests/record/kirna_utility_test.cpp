// SPDX-License-Identifier: MIT
#include "record/kirna_utility.h"

#include <gtest/gtest.h>

#include "support/captured_events.h"
#include "varnock/conversions.h"

namespace varnock::KIRNA_utility {
namespace {

using namespace std::string_literals;

bool valid(const Variant& value, const char* type) {
  return IsValidForSqlType(value, type);
}

TEST(IsValidForSqlType, KnowsTwentyTypeNamesInFiveClasses) {
  const Variant number(42), date(Date{36650}), text("abc"), boolean(true), guid("{x}");
  for (const char* type : {"int", "smallint", "tinyint", "decimal", "numeric", "money",
                           "smallmoney", "float", "real"}) {
    EXPECT_TRUE(valid(number, type)) << type;
    EXPECT_FALSE(valid(date, type)) << type;
    EXPECT_FALSE(valid(text, type)) << type;
  }
  for (const char* type : {"datetime", "smalldatetime", "timestamp"}) {
    EXPECT_TRUE(valid(date, type)) << type;
    EXPECT_TRUE(valid(Variant("2000-05-04"), type)) << type;
    EXPECT_FALSE(valid(number, type)) << type;
  }
  for (const char* type : {"char", "varchar", "text", "nchar", "nvarchar", "ntext"}) {
    EXPECT_TRUE(valid(text, type)) << type;
    EXPECT_TRUE(valid(Variant(std::string(100000, 'x')), type)) << type;
    EXPECT_TRUE(valid(Variant(), type)) << type;
  }
  EXPECT_TRUE(valid(boolean, "bit"));
  EXPECT_FALSE(valid(text, "bit"));
  EXPECT_TRUE(valid(guid, "uniqueidentifier"));
  EXPECT_FALSE(valid(text, "uniqueidentifier"));
}

TEST(IsValidForSqlType, FoldsTheNameButStripsNothing) {
  EXPECT_TRUE(valid(Variant("42"), "INT"));
  EXPECT_TRUE(valid(Variant("42"), "NVarChar"));
  EXPECT_FALSE(valid(Variant("42"), " int"));
  EXPECT_FALSE(valid(Variant("abc"), "nvarchar(50)"));
  EXPECT_FALSE(valid(Variant("abc"), "xml"));
  EXPECT_FALSE(valid(Variant(), "xml"));
  EXPECT_FALSE(IsValidForSqlType(Variant("abc"), Variant::null()));
}

TEST(IsValidForSqlType, NumericRulesHaveNoRanges) {
  EXPECT_TRUE(valid(Variant(300), "tinyint"));
  EXPECT_TRUE(valid(Variant(100000), "tinyint"));
  EXPECT_TRUE(valid(Variant(-5), "tinyint"));
  EXPECT_FALSE(valid(Variant(""), "int"));
  EXPECT_TRUE(valid(Variant(), "int"));
  EXPECT_TRUE(valid(Variant(false), "int"));
  EXPECT_FALSE(valid(Variant("12abc"), "int"));
  EXPECT_FALSE(valid(Variant(5), "smalldatetime"));
  EXPECT_FALSE(valid(Variant(), "smalldatetime"));
}

TEST(IsBooleanValue, AcceptsWhatConvertsToABoolean) {
  for (const Variant& v : {Variant("TRUE"), Variant("false"), Variant(-1), Variant("0"),
                           Variant(0.25), Variant(), Variant(Date{2}), Variant("1e3")}) {
    EXPECT_TRUE(IsBooleanValue(v)) << toText(v);
  }
  EXPECT_FALSE(IsBooleanValue(Variant("yes")));
  EXPECT_FALSE(IsBooleanValue(Variant("")));
  EXPECT_FALSE(IsBooleanValue(Variant::null()));
}

TEST(IsGuidValue, LooksOnlyAtTheBraces) {
  EXPECT_TRUE(IsGuidValue(Variant("{}")));
  EXPECT_TRUE(IsGuidValue(Variant("{not a guid}")));
  EXPECT_TRUE(IsGuidValue(Variant("{12345678-90AB-CDEF-1234-567890ABCDEF}")));
  EXPECT_FALSE(IsGuidValue(Variant("{12345678-90AB-CDEF-1234-567890ABCDEF")));
  EXPECT_FALSE(IsGuidValue(Variant("")));
  EXPECT_FALSE(IsGuidValue(Variant("{")));
  EXPECT_FALSE(IsGuidValue(Variant(7)));
  EXPECT_FALSE(IsGuidValue(Variant::null()));
}

TEST(FindItem, FindsWholeItemsInThreeSteps) {
  const Variant comma(",");
  // Step 1: delimiter + item + delimiter, at the leading delimiter.
  EXPECT_EQ(FindItem(Variant("a,bc,d,"), Variant("bc"), comma), 2);
  EXPECT_EQ(FindItem(Variant("a,bc,d,"), Variant("b"), comma), 0);
  // Step 2: the list begins with item + delimiter.
  EXPECT_EQ(FindItem(Variant("bc,d,"), Variant("bc"), comma), 1);
  // Step 3: the first delimiter + item, only when it ends the list.
  EXPECT_EQ(FindItem(Variant("a,bc"), Variant("bc"), comma), 2);
  EXPECT_EQ(FindItem(Variant("x,item2,item"), Variant("item"), comma), 0);
  EXPECT_EQ(FindItem(Variant("bc"), Variant("bc"), comma), 0);
  EXPECT_EQ(FindItem(Variant("ab,"), Variant(""), comma), 3);
  EXPECT_EQ(FindItem(Variant("a,b,"), Variant(""), comma), 0);
  EXPECT_EQ(FindItem(Variant("a"), Variant("x"), comma), 0);  // p = 0 even when lengths agree
  EXPECT_EQ(FindItem(Variant(""), Variant("a"), comma), 0);
}

TEST(FindItem, CompareModeDecidesCase) {
  const std::string list = "Country\0"s;
  const Variant nul(std::string(1, '\0'));
  EXPECT_EQ(FindItem(Variant(list), Variant("country"), nul, Variant(std::int16_t{1})), 1);
  EXPECT_EQ(FindItem(Variant(list), Variant("country"), nul, Variant(std::int16_t{0})), 0);
  EXPECT_EQ(FindItem(Variant(list), Variant("Country"), nul), 1);
  EXPECT_EQ(FindItem(Variant("A,B,"), Variant("b"), Variant(","), Variant(1)), 2);
}

TEST(FindItem, TrapsRunTimeErrorsAndReportsThem) {
  testing::CapturedEvents events;
  EXPECT_EQ(FindItem(Variant::null(), Variant("a"), Variant(",")), 0);
  ASSERT_EQ(events.count(), 1u);
  EXPECT_EQ(events.last().id, 94);
  EXPECT_EQ(events.last().source, "FindItem");
  EXPECT_EQ(events.last().type, 1);
  EXPECT_EQ(events.last().message, "\r\nInvalid use of Null[Varnock]");

  EXPECT_EQ(FindItem(Variant("a,"), Variant("a"), Variant(","), Variant(7)), 0);
  EXPECT_EQ(events.last().id, 5);
  EXPECT_EQ(events.last().message, "\r\nInvalid procedure call or argument[Varnock]");
}

}  // namespace
}  // namespace varnock::KIRNA_utility
