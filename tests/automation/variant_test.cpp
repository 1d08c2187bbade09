// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "varnock/automation_error.h"
#include "varnock/variant.h"

namespace varnock {
namespace {

struct Thing final : Object {
  std::string_view typeName() const override { return "Thing"; }
};

TEST(Variant, KeepsNullAndEmptyApart) {
  EXPECT_TRUE(Variant().isEmpty());
  EXPECT_FALSE(Variant().isNull());
  EXPECT_TRUE(Variant::null().isNull());
  EXPECT_NE(Variant(), Variant::null());
  EXPECT_NE(Variant(""), Variant());
  EXPECT_EQ(Variant::null().type(), Variant::Type::Null);
}

TEST(Variant, HoldsEachTypeAsGiven) {
  EXPECT_EQ(Variant(true).type(), Variant::Type::Boolean);
  EXPECT_EQ(Variant(std::int16_t{1}).type(), Variant::Type::Integer);
  EXPECT_EQ(Variant(1).type(), Variant::Type::Long);
  EXPECT_EQ(Variant(1.0).type(), Variant::Type::Double);
  EXPECT_EQ(Variant(Currency{1}).type(), Variant::Type::Currency);
  EXPECT_EQ(Variant(Date{1}).type(), Variant::Type::Date);
  EXPECT_EQ(Variant("12").type(), Variant::Type::String);
  EXPECT_EQ(static_cast<int>(Variant(true).type()), 11);  // VarType numbering
  EXPECT_NE(Variant(1), Variant(1.0));
  EXPECT_NE(Variant(1), Variant("1"));
}

TEST(Variant, RefersToObjectsWithoutCopyingThem) {
  auto thing = std::make_shared<Thing>();
  const Variant a(thing);
  const Variant b = a;
  EXPECT_EQ(a.type(), Variant::Type::Object);
  EXPECT_EQ(b.asObject().get(), thing.get());
  EXPECT_EQ(thing.use_count(), 3);
}

TEST(Variant, TypedReadOfAnotherTypeIsATypeMismatch) {
  try {
    Variant("1").asLong();
    FAIL();
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.number(), 13);
    EXPECT_EQ(e.description(), "Type mismatch");
  }
}

TEST(Currency, RoundsToTenThousandthsAndRefusesWhatDoesNotFit) {
  EXPECT_EQ(Currency::fromDouble(1.23456).tenThousandths, 12346);
  EXPECT_THROW(Currency::fromDouble(1e300), AutomationError);
}

}  // namespace
}  // namespace varnock
