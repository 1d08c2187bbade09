// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/failure_of.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"

namespace varnock {
namespace {

Date dateOf(int y, int m, int d, int h = 0, int mi = 0, int s = 0) {
  return Date::fromCivil({y, m, d, h, mi, s});
}

TEST(TextConversion, WritesEachTypeInItsOrdinaryForm) {
  EXPECT_EQ(toText(Variant()), "");
  EXPECT_EQ(toText(Variant(true)), "True");
  EXPECT_EQ(toText(Variant(false)), "False");
  EXPECT_EQ(toText(Variant(std::int16_t{-12})), "-12");
  EXPECT_EQ(toText(Variant(2147483647)), "2147483647");
  EXPECT_EQ(toText(Variant("it's")), "it's");
  EXPECT_EQ(toText(Variant(Currency{-12345})), "-1.2345");
  EXPECT_EQ(toText(Variant(Currency{25000})), "2.5");
  EXPECT_EQ(toText(Variant(Currency{INT64_MIN})), "-922337203685477.5808");
}

TEST(TextConversion, DoublesKeepFifteenDigitsAndSwitchToExponents) {
  EXPECT_EQ(formatDouble(0.5), "0.5");
  EXPECT_EQ(formatDouble(-0.0), "0");
  EXPECT_EQ(formatDouble(1.0 / 3.0), "0.333333333333333");
  EXPECT_EQ(formatDouble(0.1 + 0.2), "0.3");
  EXPECT_EQ(formatDouble(123456789012345.0), "123456789012345");
  EXPECT_EQ(formatDouble(1234567890123456.0), "1.23456789012346E+15");
  EXPECT_EQ(formatDouble(1e15), "1E+15");
  EXPECT_EQ(formatDouble(0.0001), "0.0001");
  EXPECT_EQ(formatDouble(0.00001), "1E-05");
  EXPECT_EQ(formatDouble(-1.5e-20), "-1.5E-20");
}

TEST(TextConversion, DatesUseTheUsFormWithoutEmptyParts) {
  EXPECT_EQ(toText(Variant(dateOf(2000, 5, 4, 13, 45))), "5/4/2000 1:45:00 PM");
  EXPECT_EQ(toText(Variant(dateOf(2000, 5, 4))), "5/4/2000");
  EXPECT_EQ(toText(Variant(dateOf(1999, 12, 31, 0, 0, 1))), "12/31/1999 12:00:01 AM");
  EXPECT_EQ(toText(Variant(dateOf(2000, 1, 1, 12, 0, 0))), "1/1/2000 12:00:00 PM");
  EXPECT_EQ(toText(Variant(Date{0.0})), "12:00:00 AM");
  EXPECT_EQ(toText(Variant(Date{0.75})), "6:00:00 PM");
  EXPECT_EQ(toText(Variant(Date{-1.25})), "12/29/1899 6:00:00 AM");
  EXPECT_EQ(toText(Variant(Date{1.0})), "12/31/1899");
  EXPECT_EQ(toText(Variant(dateOf(100, 1, 1))), "1/1/100");
}

TEST(TextConversion, RefusesNullAndObjects) {
  EXPECT_EQ(testing::failureOf([] { toText(Variant::null()); }), 94);
  EXPECT_EQ(testing::failureOf([] { toNumber(Variant::null()); }), 94);
  EXPECT_EQ(testing::failureOf([] { toBoolean(Variant::null()); }), 94);
  EXPECT_EQ(testing::failureOf([] { toDate(Variant::null()); }), 94);
  try {
    toText(Variant::null());
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.description(), "Invalid use of Null");
    EXPECT_EQ(e.source(), "Varnock");
  }
}

TEST(BooleanConversion, AcceptsBooleansNumbersAndTheirTexts) {
  EXPECT_TRUE(toBoolean(Variant(" TRUE ")));
  EXPECT_FALSE(toBoolean(Variant("false")));
  EXPECT_TRUE(toBoolean(Variant("-1")));
  EXPECT_FALSE(toBoolean(Variant("0")));
  EXPECT_TRUE(toBoolean(Variant(0.5)));
  EXPECT_FALSE(toBoolean(Variant()));
  EXPECT_TRUE(toBoolean(Variant(dateOf(2000, 1, 1))));
  EXPECT_EQ(testing::failureOf([] { toBoolean(Variant("yes")); }), 13);
  EXPECT_EQ(testing::failureOf([] { toBoolean(Variant("")); }), 13);
}

TEST(NumberConversion, ConvertsAndRoundsHalfToEven) {
  EXPECT_EQ(toNumber(Variant(true)), -1.0);
  EXPECT_EQ(toNumber(Variant("1,234.5")), 1234.5);
  EXPECT_EQ(toLong(Variant("3")), 3);
  EXPECT_EQ(toLong(Variant(2.5)), 2);
  EXPECT_EQ(toLong(Variant(3.5)), 4);
  EXPECT_EQ(toLong(Variant(-2.5)), -2);
  EXPECT_EQ(testing::failureOf([] { toLong(Variant(2147483648.0)); }), 6);
  EXPECT_EQ(testing::failureOf([] { toNumber(Variant("12abc")); }), 13);
  EXPECT_EQ(testing::failureOf([] { toDate(Variant("not a date")); }), 13);
}

TEST(NumericTest, FollowsTheUsNumberRule) {
  for (const char* text : {"0", "42", "-42", "+42", " 42 ", "\t7", "1,234", "12,345,678.25", ".5",
                           "5.", "1e3", "1E+3", "-2.5e-3", "007"}) {
    EXPECT_TRUE(parseNumber(text).has_value()) << text;
  }
  for (const char* text :
       {"",   " ",   "+",   "-",   ".",  "12abc", "abc", "1,23",  "1,2345", ",123",  "1,",
        "1e", "1e+", "--1", "1 2", "$5", "(5)",   "5-",  "1.2.3", "0x10",   "1e999", "1,000,00"}) {
    EXPECT_FALSE(parseNumber(text).has_value()) << text;
  }
  EXPECT_EQ(*parseNumber(" -1,234.5e1 "), -12345.0);
  EXPECT_TRUE(isNumeric(Variant()));
  EXPECT_TRUE(isNumeric(Variant(false)));
  EXPECT_TRUE(isNumeric(Variant(Currency{1})));
  EXPECT_FALSE(isNumeric(Variant::null()));
  EXPECT_FALSE(isNumeric(Variant(dateOf(2000, 1, 1))));
  EXPECT_FALSE(isNumeric(Variant("")));
}

TEST(DateTest, AcceptsTheUsDateForms) {
  const Date may4 = dateOf(2000, 5, 4);
  const Date may4Afternoon = dateOf(2000, 5, 4, 13, 45);
  for (const char* text :
       {"5/4/2000", "5/4/00", "05/04/2000", "2000-5-4", "2000-05-04", "2000/5/4", "May 4, 2000",
        "may 4 2000", "4 May 2000", "4 MAY, 2000", "MAY 04, 2000"}) {
    EXPECT_EQ(parseDate(text), may4) << text;
  }
  for (const char* text : {"5/4/2000 13:45", "5/4/2000 1:45 PM", "5/4/2000 1:45:00 PM",
                           "2000/5/4 13:45:00PM", "2000-05-04T13:45:00", "2000-05-04T13:45",
                           "May 4, 2000 1:45pm", "  5/4/2000   1:45:00PM  "}) {
    EXPECT_EQ(parseDate(text), may4Afternoon) << text;
  }
  EXPECT_EQ(parseDate("12:00 AM"), Date{0.0});
  EXPECT_EQ(parseDate("12:30 PM"), Date{0.5 + 30.0 / 1440.0});
  EXPECT_EQ(parseDate("0:00:01"), Date{1.0 / 86400.0});
  EXPECT_EQ(parseDate("1/1/29"), dateOf(2029, 1, 1));
  EXPECT_EQ(parseDate("1/1/30"), dateOf(1930, 1, 1));
  EXPECT_EQ(parseDate("2/29/2000"), dateOf(2000, 2, 29));
  EXPECT_EQ(parseDate("Sep 9 1999"), dateOf(1999, 9, 9));
  EXPECT_EQ(parseDate("1/1/100"), dateOf(100, 1, 1));
  EXPECT_EQ(parseDate("12/31/9999"), dateOf(9999, 12, 31));
}

TEST(DateTest, RefusesWhatIsNotARealDateOrTime) {
  // Days, months and years that are not there.
  for (const char* text : {"2/30/2000", "2/29/1900", "13/1/2000", "0/1/2000", "1/0/2000",
                           "1/1/99999", "1/1/0099", "12/31/10000"})
    EXPECT_FALSE(parseDate(text).has_value()) << text;
  // Times that are not there, and forms that are no date.
  for (const char* text :
       {"", " ", "abc", "24:00", "23:60", "23:59:60", "13:00 AM", "1:5:", "5/4", "May 2000",
        "2000-05-04T", "5-4-2000", "5/4/2000 x", "5.4.2000", "42", "1e3"})
    EXPECT_FALSE(parseDate(text).has_value()) << text;
  for (const char* text : {"5/4/2000 T13:45", "Sept 4, 2000", "5/4/2000 13:45 13:45"})
    EXPECT_FALSE(parseDate(text).has_value()) << text;
  // A valid date followed by a time that is not one: the whole text is refused,
  // never read as the date at midnight.
  for (const char* text :
       {"2000-05-04 25:00", "5/4/2000 12:60", "May 4, 2000 99:99:99", "2000-05-04 12:30:61",
        "4 May 2000 24:61", "5/4/2000 1:", "5/4/2000 7", "2000-05-04T24:00", "5/4/2000 13:00 AM"})
    EXPECT_FALSE(parseDate(text).has_value()) << text;
  EXPECT_FALSE(isDate(Variant(5)));
  EXPECT_FALSE(isDate(Variant()));
  EXPECT_FALSE(isDate(Variant::null()));
  EXPECT_TRUE(isDate(Variant(Date{-5.5})));
}

TEST(DateTest, DatesOutsideTheCalendarAreNoDates) {
  const double kInfinity = std::numeric_limits<double>::infinity();
  const double kNaN = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(isDate(Variant(Date::fromCivil({100, 1, 1, 0, 0, 0}))));
  // The last instant of the calendar is a date, and reads as its last second.
  const Variant last{Date{2958465.0 + 86399.9 / 86400}};
  EXPECT_TRUE(isDate(last));
  EXPECT_EQ(toText(last), "12/31/9999 11:59:59 PM");
  for (const double serial :
       {kNaN, kInfinity, -kInfinity, 1e300, -1e300, 2958466.0, -657435.0, -657436.5}) {
    SCOPED_TRACE(serial);
    const Variant date{Date{serial}};
    EXPECT_FALSE(isDate(date));
    EXPECT_EQ(testing::failureOf([&] { toDate(date); }), AutomationError::kTypeMismatch);
  }
  // No calendar arithmetic on what has no calendar fields: a type mismatch,
  // never undefined behaviour.
  for (const double serial : {kNaN, kInfinity, -kInfinity, 1e300, -1e300}) {
    EXPECT_EQ(testing::failureOf([&] { toText(Variant(Date{serial})); }),
              AutomationError::kTypeMismatch);
  }
  EXPECT_EQ(testing::failureOf([&] { toDate(Variant(kNaN)); }), AutomationError::kTypeMismatch);
  EXPECT_EQ(testing::failureOf([&] { toDate(Variant(1e10)); }), AutomationError::kOverflow);
  EXPECT_EQ(toText(Variant(toDate(Variant(36650.5)))), "5/4/2000 12:00:00 PM");
}

TEST(DateTest, ReadsBackEveryTextItWrites) {
  // Whole seconds across the calendar, before and after day 0, on day 0 and
  // at midnight, so that each of the three text forms is covered.
  std::size_t checked = 0;
  for (double day = -657434; day <= 2958465; day += 997.3) {
    for (const double fraction : {0.0, 0.25, 0.5, 13.0 / 24 + 45.0 / 1440, 86399.0 / 86400}) {
      const Date date = Date::fromCivil(Date{std::trunc(day) + fraction}.civil());
      const std::string text = formatDate(date);
      const auto back = parseDate(text);
      ASSERT_TRUE(back.has_value()) << text;
      EXPECT_EQ(formatDate(*back), text);
      EXPECT_NEAR(back->serial, date.serial, 1e-9) << text;
      ++checked;
    }
  }
  for (const double fraction : {0.0, 0.5, 0.999}) {
    EXPECT_EQ(formatDate(*parseDate(formatDate(Date{fraction}))), formatDate(Date{fraction}));
  }
  EXPECT_GT(checked, 10000u);
}

}  // namespace
}  // namespace varnock
