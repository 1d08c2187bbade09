// SPDX-License-Identifier: MIT
// The register's text order: case folded beyond ASCII, accents kept, NOCASE's
// order for ASCII, and a total order whatever bytes the texts hold.
#include "collation/compare.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace varnock::collation {
namespace {

int sign(int value) {
  return (value > 0) - (value < 0);
}

int order(std::string_view a, std::string_view b) {
  return sign(compareWithoutCase(a, b));
}

TEST(CompareWithoutCase, LettersBeyondAsciiAreEqualInEitherCase) {
  EXPECT_EQ(order("ZÜRICH", "Zürich"), 0);
  EXPECT_EQ(order("ΣΟΦΊΑ", "σοφία"), 0);
  EXPECT_EQ(order("ΟΔΟΣ", "οδος"), 0);
  EXPECT_EQ(order("οδοσ", "οδος"), 0);  // final sigma
  EXPECT_EQ(order("МОСКВА", "москва"), 0);
  EXPECT_EQ(order("\U00010400", "\U00010428"), 0);  // four-byte letters
  EXPECT_EQ(order("\u212A", "k"), 0);               // a letter beyond ASCII equal to one in it
  EXPECT_EQ(order("ÅNGSTRÖM x", "ångström X"), 0);
}

TEST(CompareWithoutCase, AccentsAndOtherFormsStayApart) {
  EXPECT_NE(order("é", "e"), 0);
  EXPECT_NE(order("Zurich", "Zürich"), 0);
  EXPECT_NE(order("ß", "ss"), 0);       // simple folding only
  EXPECT_NE(order("u\u0308", "ü"), 0);  // no normalization either
  EXPECT_NE(order("\u0130", "i"), 0);   // dotted capital I has no simple folding
}

TEST(CompareWithoutCase, OrdersByFoldedCodePoint) {
  std::vector<std::string> texts = {"Öz",    "öb",    "ÖL", "Zürich", "zebra",
                                    "Ärger", "apple", "Ab", ""};
  std::sort(texts.begin(), texts.end(),
            [](const std::string& a, const std::string& b) { return order(a, b) < 0; });
  EXPECT_EQ(texts, (std::vector<std::string>{"", "Ab", "apple", "zebra", "Zürich", "Ärger", "öb",
                                             "ÖL", "Öz"}));
  EXPECT_LT(order("Zür", "ZÜRICH"), 0);  // a prefix comes first
  EXPECT_GT(order("ZÜRICH", "Zür"), 0);
}

// SQLite's NOCASE: ASCII letters folded, then the shorter first.
int nocase(const std::string& a, const std::string& b) {
  const int common =
      sqlite3_strnicmp(a.data(), b.data(), static_cast<int>(std::min(a.size(), b.size())));
  return common != 0 ? sign(common) : sign(static_cast<int>(a.size()) - static_cast<int>(b.size()));
}

TEST(CompareWithoutCase, AsciiTextsAreInNocasesOrder) {
  // Letters around the punctuation that sits between upper and lower case.
  const std::string alphabet = "aAbZz_[@`{ 09~";
  std::mt19937 random(20240611);
  std::vector<std::string> texts;
  for (int i = 0; i < 400; ++i) {
    std::string text(random() % 6, ' ');
    for (char& c : text)
      c = alphabet[random() % alphabet.size()];
    texts.push_back(text);
  }
  for (const std::string& a : texts) {
    for (const std::string& b : texts)
      ASSERT_EQ(order(a, b), nocase(a, b)) << "'" << a << "' '" << b << "'";
  }
}

TEST(CompareWithoutCase, NulCharactersAreCharactersLikeAnyOther) {
  using namespace std::string_view_literals;
  EXPECT_EQ(order("a\0B"sv, "A\0b"sv), 0);
  EXPECT_LT(order("a"sv, "a\0"sv), 0);
  EXPECT_LT(order("a\0z"sv, "ab"sv), 0);
}

TEST(CompareWithoutCase, BytesThatAreNoUtf8SortAfterEveryCodePointAndEqualOnlyThemselves) {
  EXPECT_GT(order("\xC3", "\xF4\x8F\xBF\xBF"), 0);  // a truncated sequence after U+10FFFF
  EXPECT_NE(order("\xC3", "\xC3\xBC"), 0);
  EXPECT_NE(order("\xC3\x9C", "\xC3\xBC\xBC"), 0);
  EXPECT_EQ(order("\xC3\x9C\xBC", "\xC3\xBC\xBC"), 0);         // Ü and ü, then a stray byte each
  EXPECT_NE(order("\xC0\x80", std::string_view("\0", 1)), 0);  // overlong NUL
  EXPECT_NE(order("\xED\xA0\x80", "\xEF\xBF\xBD"), 0);         // a surrogate is no U+FFFD
  EXPECT_LT(order("\x80", "\x81"), 0);
  EXPECT_EQ(order("A\xFF", "a\xFF"), 0);
}

// Random texts from pieces of UTF-8, broken sequences included.
std::vector<std::string> randomTexts(std::size_t count, unsigned seed) {
  const std::vector<std::string> pieces = {"a",
                                           "A",
                                           "z",
                                           "ü",
                                           "Ü",
                                           "\xC3",
                                           "\xBC",
                                           "\x9C",
                                           "\xFF",
                                           "\xE2\x84",
                                           "\xAA",
                                           "K",
                                           "k",
                                           "\xF0\x90\x90",
                                           "\x80",
                                           "\xA8",
                                           std::string(1, '\0'),
                                           "é"};
  std::mt19937 random(seed);
  std::vector<std::string> texts;
  for (std::size_t i = 0; i < count; ++i) {
    std::string text;
    for (std::size_t n = random() % 5; n > 0; --n)
      text += pieces[random() % pieces.size()];
    texts.push_back(text);
  }
  return texts;
}

TEST(CompareWithoutCase, IsATotalOrderOnAnyBytes) {
  const std::vector<std::string> texts = randomTexts(120, 7);
  for (const std::string& a : texts) {
    EXPECT_EQ(order(a, a), 0);
    for (const std::string& b : texts) {
      ASSERT_EQ(order(a, b), -order(b, a))
          << testing::PrintToString(a) << " " << testing::PrintToString(b);
      for (const std::string& c : texts) {
        if (order(a, b) <= 0 && order(b, c) <= 0) {
          ASSERT_LE(order(a, c), 0) << testing::PrintToString(a) << " " << testing::PrintToString(b)
                                    << " " << testing::PrintToString(c);
        }
      }
    }
  }
}

}  // namespace
}  // namespace varnock::collation
