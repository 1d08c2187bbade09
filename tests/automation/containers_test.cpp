// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "varnock/automation_error.h"
#include "varnock/collection.h"
#include "varnock/dictionary.h"

namespace varnock {
namespace {

TEST(Dictionary, KeepsInsertionOrderAndExactKeys) {
  Dictionary d;
  d.Add("b", 2);
  d.Add("a", 1);
  d.Add("B", 3);
  EXPECT_EQ(d.Keys(), (std::vector<std::string>{"b", "a", "B"}));
  EXPECT_EQ(d.Items(), (std::vector<Variant>{Variant(2), Variant(1), Variant(3)}));
  EXPECT_TRUE(d.Exists("B"));
  EXPECT_FALSE(d.Exists("c"));
  d.SetItem("a", Variant::null());
  EXPECT_TRUE(d.Item("a").isNull());
  EXPECT_EQ(d.Count(), 3);
  std::string walked;
  for (const auto& [key, value] : d)
    walked += key;
  EXPECT_EQ(walked, "baB");
}

TEST(Dictionary, RefusesDuplicateAndMissingKeys) {
  Dictionary d;
  d.Add("k", 1);
  try {
    d.Add("k", 2);
    FAIL();
  } catch (const AutomationError& e) {
    EXPECT_EQ(e.number(), 457);
  }
  EXPECT_THROW(d.Item("missing"), AutomationError);
  EXPECT_EQ(d.itemOf(Variant("k")), Variant(1));
}

TEST(Collection, CountsFromOne) {
  Collection c;
  c.Add(Variant("first"));
  c.Add(Variant("second"));
  EXPECT_EQ(c.Count(), 2);
  EXPECT_EQ(c.Item(1), Variant("first"));
  EXPECT_EQ(c.Item(2), Variant("second"));
  for (const std::int32_t bad : {0, 3, -1}) {
    try {
      c.Item(bad);
      FAIL() << bad;
    } catch (const AutomationError& e) {
      EXPECT_EQ(e.number(), 9);
    }
  }
}

TEST(Containers, DeepNestingIsReleasedWithoutRunningOutOfStack) {
  // Far deeper than any stack holds one destructor frame per level.
  constexpr int kLevels = 300000;
  auto outer = std::make_shared<Dictionary>();
  Dictionary* dictionary = outer.get();
  for (int level = 0; level < kLevels; ++level) {
    auto collection = std::make_shared<Collection>();
    auto inner = std::make_shared<Dictionary>();
    Dictionary* next = inner.get();
    collection->Add(Variant(std::move(inner)));
    dictionary->Add("next", Variant(std::move(collection)));
    dictionary = next;
  }
  std::weak_ptr<Dictionary> watched = outer;
  outer.reset();
  EXPECT_TRUE(watched.expired());
}

}  // namespace
}  // namespace varnock
