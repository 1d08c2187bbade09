// SPDX-License-Identifier: MIT
// Which lines of a document count as example code, and where the generated
// source says they came from.
#include "docs/example_extraction.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace varnock::docs {
namespace {

using Lines = std::vector<std::string>;

TEST(MarkdownExamples, AreTheCppBlocksWithTheLineTheirCodeStartsOn) {
  const auto examples = markdownExamples(
      "# Title\n"
      "```sh\n"
      "make\n"
      "```\n"
      "```cpp\n"
      "int a = 1;\n"
      "\n"
      "  a += 2;\n"
      "```\n"
      "```python\n"
      "x = 1\n"
      "```\n"
      "```cpp\r\n"
      "int b;\r\n"
      "```\r\n");
  ASSERT_EQ(examples.size(), 2u);
  EXPECT_EQ(examples[0].firstLine, 6u);
  EXPECT_EQ(examples[0].lines, (Lines{"int a = 1;", "", "  a += 2;"}));
  EXPECT_EQ(examples[1].firstLine, 14u);
  EXPECT_EQ(examples[1].lines, (Lines{"int b;"}));
}

TEST(MarkdownExamples, AnUnclosedBlockIsAnError) {
  EXPECT_THROW(markdownExamples("```cpp\nint a;\n"), ExtractionError);
}

TEST(HeaderExamples, AreIndentedRunsAfterABareCommentLine) {
  const auto examples = headerExamples(
      "// What the type is for. The settings:\n"
      "//   \"one\"   a setting, not code\n"
      "//   \"two\"   another\n"
      "// More prose.\n"
      "//\n"
      "//   Thing t;\n"
      "//   if (t.ok()) {\n"
      "//     t.use();\n"
      "//   }\n"
      "//\n"
      "//   Thing u;\n"
      "#pragma once\n"
      "//\n"
      "//   int notAnExample;\n");
  ASSERT_EQ(examples.size(), 2u);
  EXPECT_EQ(examples[0].firstLine, 6u);
  EXPECT_EQ(examples[0].lines, (Lines{"Thing t;", "if (t.ok()) {", "  t.use();", "}"}));
  EXPECT_EQ(examples[1].firstLine, 11u);
  EXPECT_EQ(examples[1].lines, (Lines{"Thing u;"}));
}

TEST(HeaderExamples, AHeaderWithoutOneHasNone) {
  EXPECT_TRUE(headerExamples("// Prose only.\n#pragma once\nint x;\n").empty());
  EXPECT_TRUE(headerExamples("").empty());
}

// The lines of `text`, from 1.
Lines linesOf(const std::string& text) {
  Lines lines{"", ""};
  for (const char c : text) {
    if (c == '\n') {
      lines.emplace_back();
    } else {
      lines.back().push_back(c);
    }
  }
  return lines;
}

TEST(ExamplesSource, MovesIncludesUpAndMapsEveryCodeLineToTheDocument) {
  const Example example{10, {"#include <map>", "std::map<int, int> m;", "m[1] = 2;"}};
  const std::string source =
      examplesSource("/docs/guide.md", "guide.md", "/out/guide.cpp", {example});
  const Lines lines = linesOf(source);
  std::size_t includeAt = 0, directiveAt = 0, backAt = 0;
  for (std::size_t n = 1; n < lines.size(); ++n) {
    if (lines[n] == "#include <map>") includeAt = n;
    if (lines[n] == "#line 10 \"/docs/guide.md\"") directiveAt = n;
    if (lines[n].starts_with("#line") && lines[n].ends_with("\"/out/guide.cpp\"")) backAt = n;
  }
  ASSERT_NE(includeAt, 0u);
  ASSERT_NE(directiveAt, 0u);
  ASSERT_NE(backAt, 0u);
  EXPECT_LT(includeAt, directiveAt);
  // Document line 10 is the include, now blank; 11 and 12 follow it.
  EXPECT_EQ(lines[directiveAt + 1], "");
  EXPECT_EQ(lines[directiveAt + 2], "std::map<int, int> m;");
  EXPECT_EQ(lines[directiveAt + 3], "m[1] = 2;");
  EXPECT_EQ(backAt, directiveAt + 4);
  EXPECT_EQ(lines[backAt], "#line " + std::to_string(backAt + 1) + " \"/out/guide.cpp\"");
  EXPECT_NE(source.find("registerExample(\"guide.md\", 10, "), std::string::npos);
}

TEST(ExamplesSource, IsEmptyOfCodeWithoutExamples) {
  const std::string source = examplesSource("/a.h", "a.h", "/out/a.cpp", {});
  EXPECT_EQ(source.find("#include"), std::string::npos);
}

}  // namespace
}  // namespace varnock::docs
