// SPDX-License-Identifier: MIT
// Simple case folding: the generated table against letters whose folding is
// known, and the properties the comparison relies on.
#include "collation/case_folding.h"

#include <gtest/gtest.h>

#include "collation/folding_runs.h"
#include "collation/utf8_units.h"

namespace varnock::collation {
namespace {

TEST(CaseFolding, AsciiLettersFoldToLowerCaseAndNothingElseMoves) {
  for (char32_t c = 0; c < 0x80; ++c) {
    const char32_t expected = c >= 'A' && c <= 'Z' ? c + 32 : c;
    EXPECT_EQ(foldCase(c), expected) << static_cast<int>(c);
  }
}

TEST(CaseFolding, LettersBeyondAsciiFoldToTheirSimpleFoldedForm) {
  struct Case {
    char32_t from, to;
  };
  for (const Case& c : {
           Case{U'Ü', U'ü'},
           Case{U'ü', U'ü'},
           Case{U'É', U'é'},
           Case{U'Ÿ', U'ÿ'},
           Case{U'Ā', U'ā'},
           Case{U'Ł', U'ł'},  // blocks of alternating pairs
           Case{U'Σ', U'σ'},
           Case{U'ς', U'σ'},  // final sigma folds with sigma
           Case{U'Д', U'д'},
           Case{U'Ѐ', U'ѐ'},
           Case{U'Ա', U'ա'},
           Case{U'\u212A', U'k'},               // Kelvin sign
           Case{U'\u017F', U's'},               // long s
           Case{U'\u1E9E', U'ß'},               // capital sharp s: the simple entry
           Case{U'ᾈ', U'ᾀ'},                    // Greek with prosgegrammeni
           Case{U'\U00010400', U'\U00010428'},  // Deseret, four UTF-8 bytes
           Case{U'Ꭰ', U'Ꭰ'},
           Case{U'ꭰ', U'Ꭰ'},  // Cherokee folds to upper case
           Case{U'Ａ', U'ａ'},  // fullwidth
       }) {
    EXPECT_EQ(foldCase(c.from), c.to) << std::hex << static_cast<unsigned>(c.from);
  }
}

TEST(CaseFolding, WhatHasNoSimpleFoldingStays) {
  // Full folding alone would change these (ß -> ss, İ -> i + dot); accents and
  // marks never go, and bytes that are no UTF-8 stay what they are.
  for (const char32_t c :
       {U'ß', U'\u0130', U'\u0149', U'é', U'e', U'\u0301', U'中', U'€',
        char32_t{kInvalidByteBase + 0x80}, char32_t{kInvalidByteBase + 0xFF}, char32_t{0x10FFFF}}) {
    EXPECT_EQ(foldCase(c), c) << std::hex << static_cast<unsigned>(c);
  }
}

TEST(CaseFolding, FoldingTwiceChangesNothingAndStaysAmongCodePoints) {
  for (char32_t c = 0; c < 0x110000; ++c) {
    const char32_t once = foldCase(c);
    ASSERT_LT(once, 0x110000u) << std::hex << static_cast<unsigned>(c);
    ASSERT_EQ(foldCase(once), once) << std::hex << static_cast<unsigned>(c);
  }
}

// The lookup takes the last run that starts at or before a code point: no run
// may start inside another, stride-2 runs included.
TEST(CaseFolding, TheGeneratedRunsAreSortedAndNoneStartsInsideAnother) {
  ASSERT_GT(kFoldingRunCount, 100u);
  std::uint32_t next = 0;
  for (std::size_t i = 0; i < kFoldingRunCount; ++i) {
    const FoldingRun& r = kFoldingRuns[i];
    EXPECT_GE(r.first, next) << i;
    EXPECT_TRUE(r.stride == 1 || r.stride == 2) << i;
    EXPECT_GT(r.count, 0) << i;
    EXPECT_NE(r.delta, 0) << i;
    next = r.first + (r.count - 1u) * r.stride + 1;
  }
}

}  // namespace
}  // namespace varnock::collation
