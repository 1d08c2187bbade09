// SPDX-License-Identifier: MIT
// Finding the C++ examples in Varnock's documentation and turning them into a
// source file that a test build compiles, so a documented example that no
// longer matches the API breaks the build. Two kinds of document hold them:
//   Markdown  every fenced block opened by ```cpp
//   a header  in its opening comment (the "//" lines it starts with), every
//             run of lines indented by three blanks that follows a bare "//"
// Indented lines that continue a sentence (a list of settings, say) are prose.
//
//   auto examples = varnock::docs::markdownExamples(readmeText);
//   std::string cpp = varnock::docs::examplesSource("/src/README.md", "README.md",
//                                                   "/build/readme.cpp", examples);
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace varnock::docs {

struct Example {
  std::size_t firstLine = 0;       // the document's line (from 1) of the first code line
  std::vector<std::string> lines;  // the code as written, comment markers removed
};

// A document whose examples cannot be read (an unclosed code fence).
class ExtractionError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The examples of a Markdown text, in document order. An unclosed ```cpp
// block raises ExtractionError.
std::vector<Example> markdownExamples(std::string_view text);

// The examples of a header's opening comment, in document order; comments
// after the opening one are never examples.
std::vector<Example> headerExamples(std::string_view text);

// A C++ source file with one function per example, each registered with
// docs/example_registry.h under `name` and its first line. The file includes
// the umbrella header varnock/varnock.h, <cassert> (asserts are live whatever
// NDEBUG says), <iostream> and <string>; an example's own #include lines are
// moved to the top. #line directives point each example at `documentPath`, so a compiler
// error or a failed assert names the document's line, and the code around
// the examples at `generatedPath`, the file being written.
std::string examplesSource(std::string_view documentPath, std::string_view name,
                           std::string_view generatedPath, const std::vector<Example>& examples);

}  // namespace varnock::docs
