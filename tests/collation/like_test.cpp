// SPDX-License-Identifier: MIT
// LIKE without regard to case beyond ASCII: SQLite's LIKE for ASCII texts,
// wildcards and escapes counted in characters, any bytes matched safely.
#include "collation/like.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <random>
#include <string>
#include <vector>

#include "collation/utf8_units.h"

namespace varnock::collation {
namespace {

TEST(Like, FoldsCaseBeyondAscii) {
  EXPECT_TRUE(likeMatches("zü%", "ZÜRICH"));
  EXPECT_TRUE(likeMatches("ZÜRICH", "zürich"));
  EXPECT_TRUE(likeMatches("%RICH", "Zürich"));
  EXPECT_TRUE(likeMatches("%Σ", "ΟΔΟς"));  // final sigma
  EXPECT_TRUE(likeMatches("%\U00010400%", "x\U00010428y"));
  EXPECT_FALSE(likeMatches("zurich", "Zürich"));  // accents count
  EXPECT_FALSE(likeMatches("e%", "éclair"));
  EXPECT_FALSE(likeMatches("ss", "ß"));
}

TEST(Like, AnUnderscoreIsOneCharacterWhateverItsLength) {
  EXPECT_TRUE(likeMatches("Z_rich", "Zürich"));
  EXPECT_TRUE(likeMatches("_", "\U00010400"));
  EXPECT_FALSE(likeMatches("__", "ü"));
  EXPECT_FALSE(likeMatches("_", ""));
  EXPECT_TRUE(likeMatches("a_c", std::string_view("a\0c", 3)));  // NUL is a character
  EXPECT_TRUE(likeMatches("_", "\xFF"));                         // and so is a stray byte
  EXPECT_FALSE(likeMatches("_", "\xC3\xBC\xBC"));
}

TEST(Like, PercentMatchesAnyRunIncludingNone) {
  EXPECT_TRUE(likeMatches("%", ""));
  EXPECT_TRUE(likeMatches("%%", "ü"));
  EXPECT_TRUE(likeMatches("a%b%c", "AxxBüüC"));
  EXPECT_FALSE(likeMatches("a%b%c", "AxxBüüCd"));
  EXPECT_TRUE(likeMatches("%a%_", "baab"));
  EXPECT_FALSE(likeMatches("", "a"));
  EXPECT_TRUE(likeMatches("", ""));
}

TEST(Like, AnEscapeMakesTheNextCharacterLiteral) {
  EXPECT_TRUE(likeMatches("100!%", "100%", U'!'));
  EXPECT_FALSE(likeMatches("100!%", "1000", U'!'));
  EXPECT_TRUE(likeMatches("a!_c", "a_c", U'!'));
  EXPECT_FALSE(likeMatches("a!_c", "abc", U'!'));
  EXPECT_TRUE(likeMatches("a!!", "a!", U'!'));
  EXPECT_TRUE(likeMatches("!Ü%", "üx", U'!'));  // an escaped letter still folds
  EXPECT_TRUE(likeMatches("100é%", "100%", U'é'));
  // An escape that is a wildcard is an escape only.
  EXPECT_TRUE(likeMatches("a%%", "a%", U'%'));
  EXPECT_FALSE(likeMatches("a%%", "ab", U'%'));
  EXPECT_FALSE(likeMatches("a%", "a", U'%'));
  EXPECT_TRUE(likeMatches("__", "_", U'_'));
  EXPECT_FALSE(likeMatches("__", "x", U'_'));
}

TEST(Like, APatternEndingInAnUnpairedEscapeMatchesNothing) {
  EXPECT_FALSE(likeMatches("a!", "a", U'!'));
  EXPECT_FALSE(likeMatches("a!", "a!", U'!'));
  EXPECT_FALSE(likeMatches("%!", "anything!", U'!'));
  EXPECT_TRUE(likeMatches("a!", "a!"));  // without the escape it is a character
}

TEST(Like, AnEscapeIsExactlyOneCharacter) {
  EXPECT_EQ(escapeUnit("!"), U'!');
  EXPECT_EQ(escapeUnit("é"), U'é');
  EXPECT_EQ(escapeUnit("\U00010400"), U'\U00010400');
  EXPECT_EQ(escapeUnit("\xFF"), kInvalidByteBase + 0xFF);
  EXPECT_EQ(escapeUnit(""), std::nullopt);
  EXPECT_EQ(escapeUnit("ab"), std::nullopt);
  EXPECT_EQ(escapeUnit("\xC3"), kInvalidByteBase + 0xC3);
  EXPECT_EQ(escapeUnit("\xC3\xBC\xBC"), std::nullopt);
}

// SQLite's own LIKE for ASCII: sqlite3_strlike returns 0 on a match.
bool sqliteLike(const std::string& pattern, const std::string& text, char escape) {
  return sqlite3_strlike(pattern.c_str(), text.c_str(), static_cast<unsigned>(escape)) == 0;
}

TEST(Like, AsciiTextsMatchAsSqlitesLikeMatchesThem) {
  std::mt19937 random(99);
  const auto draw = [&](const std::string& alphabet, std::size_t longest) {
    std::string text(random() % (longest + 1), ' ');
    for (char& c : text)
      c = alphabet[random() % alphabet.size()];
    return text;
  };
  int matched = 0;
  for (int i = 0; i < 20000; ++i) {
    const std::string pattern = draw("aAbB%_!", 6);
    const std::string text = draw("aAbB%_!", 6);
    const bool escaped = i % 2 == 0;
    const bool expected = sqliteLike(pattern, text, escaped ? '!' : '\0');
    ASSERT_EQ(likeMatches(pattern, text, escaped ? std::optional<char32_t>(U'!') : std::nullopt),
              expected)
        << "'" << text << "' LIKE '" << pattern << "'" << (escaped ? " ESCAPE '!'" : "");
    matched += expected;
  }
  EXPECT_GT(matched, 1000);  // the draw reaches both answers
}

TEST(Like, AnyBytesMatchThemselvesEscaped) {
  std::mt19937 random(5);
  for (int i = 0; i < 2000; ++i) {
    std::string text(random() % 8, ' ');
    for (char& c : text)
      c = static_cast<char>(random() % 256);
    // Each unit preceded by the escape: literal, whatever it is.
    std::string pattern;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t start = at;
      nextUnit(text, at);
      pattern += "\x01" + text.substr(start, at - start);
    }
    ASSERT_TRUE(likeMatches(pattern, text, U'\x01')) << testing::PrintToString(text);
    ASSERT_TRUE(likeMatches("%", text));
  }
}

TEST(Like, ManyPercentSignsStayFast) {
  // Exponential backtracking would not finish; this takes a few milliseconds.
  const std::string text(20000, 'a');
  EXPECT_FALSE(likeMatches("%a%a%a%a%a%a%a%a%a%a%b", text));
  EXPECT_TRUE(likeMatches("%a%a%a%a%a%a%a%a%a%a%", text));
}

}  // namespace
}  // namespace varnock::collation
