// SPDX-License-Identifier: MIT
// Writes the C++ examples of one document as a source file of functions.
// Usage: extract_examples DOCUMENT NAME OUTPUT
//   DOCUMENT  README.md or a public header (a path ending in .md or .h)
//   NAME      how the examples are named when they run ("README.md")
//   OUTPUT    the source file to write; left untouched when it would not
//             change, so the build recompiles only what did
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "docs/example_extraction.h"

namespace {

bool readFile(const std::string& path, std::string& text) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: extract_examples DOCUMENT NAME OUTPUT\n";
    return 2;
  }
  const std::string document = argv[1], name = argv[2], output = argv[3];
  std::string text;
  if (!readFile(document, text)) {
    std::cerr << "extract_examples: cannot read " << document << "\n";
    return 1;
  }
  std::string source;
  try {
    const auto examples = document.ends_with(".md") ? varnock::docs::markdownExamples(text)
                                                    : varnock::docs::headerExamples(text);
    source = varnock::docs::examplesSource(document, name, output, examples);
  } catch (const varnock::docs::ExtractionError& e) {
    std::cerr << document << ": " << e.what() << "\n";
    return 1;
  }
  std::string existing;
  if (readFile(output, existing) && existing == source) return 0;
  std::ofstream out(output, std::ios::binary | std::ios::trunc);
  out << source;
  if (!out.flush()) {
    std::cerr << "extract_examples: cannot write " << output << "\n";
    return 1;
  }
  return 0;
}
