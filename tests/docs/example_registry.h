// SPDX-License-Identifier: MIT
// The documented examples that the generated example files hold, gathered as
// their files are initialised, for the program that runs them. Registration
// happens before main; the runner reads the list after it. Not synchronised.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace varnock::docs {

struct DocumentedExample {
  std::string_view document;  // as the generated file names it ("README.md")
  std::size_t line;           // where the example's code starts
  void (*run)();
};

// Adds an example; returns true, so a namespace-scope constant can call it.
bool registerExample(std::string_view document, std::size_t line, void (*run)());

// Every registered example, in no particular order.
const std::vector<DocumentedExample>& registeredExamples();

}  // namespace varnock::docs
