// SPDX-License-Identifier: MIT
// UTF-8 to UTF-16 and back, as every text crosses the wide ODBC calls.
#include <gtest/gtest.h>

#include <string>

#include "client/odbc/wide_text.h"

namespace varnock::client::odbc {
namespace {

using namespace std::string_literals;

TEST(WideText, EveryCharacterRoundTripsWithItsLength) {
  const std::string texts[] = {
      "",      "plain", "Zoë Ørsted",       "中文",        "\xF0\x9F\x98\x80 grin",
      "a\0b"s, "\0"s,   "\xF4\x8F\xBF\xBF", "\xEF\xBF\xBF"};
  for (const std::string& text : texts) {
    EXPECT_EQ(toUtf8(toUtf16(text)), text) << text;
  }
  EXPECT_EQ(toUtf16("\xF0\x9F\x98\x80"), u"\U0001F600");
  EXPECT_EQ(toUtf16("a\0b"s).size(), 3u);
  EXPECT_EQ(toUtf8(u"\U0010FFFF\u00e9"), "\xF4\x8F\xBF\xBF\xC3\xA9");
}

TEST(WideText, MalformedUtf8BecomesTheReplacementCharacter) {
  EXPECT_EQ(toUtf16("a\x80z"), u"a\uFFFDz");          // a stray continuation byte
  EXPECT_EQ(toUtf16("\xC0\xAF"), u"\uFFFD");          // an overlong "/"
  EXPECT_EQ(toUtf16("\xED\xA0\x80"), u"\uFFFD");      // a surrogate written in UTF-8
  EXPECT_EQ(toUtf16("\xF4\x90\x80\x80"), u"\uFFFD");  // beyond U+10FFFF
  EXPECT_EQ(toUtf16("\xFF"), u"\uFFFD");
  // A truncated character leaves the byte that broke it for the next one.
  EXPECT_EQ(toUtf16("\xE4\xB8z"), u"\uFFFDz");
  EXPECT_EQ(toUtf16("\xE4\xB8"), u"\uFFFD");
}

TEST(WideText, UnpairedSurrogatesBecomeTheReplacementCharacter) {
  EXPECT_EQ(toUtf8(u"a\xD800z"), "a\xEF\xBF\xBDz");
  EXPECT_EQ(toUtf8(u"\xDC00\xD800"), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(toUtf8(std::u16string(1, u'\xD83D')), "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace varnock::client::odbc
