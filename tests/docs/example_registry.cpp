// SPDX-License-Identifier: MIT
#include "docs/example_registry.h"

namespace varnock::docs {

namespace {

// A function-local list, so that registrations from any file's initialisation
// find it constructed.
std::vector<DocumentedExample>& examples() {
  static std::vector<DocumentedExample> all;
  return all;
}

}  // namespace

bool registerExample(std::string_view document, std::size_t line, void (*run)()) {
  examples().push_back({document, line, run});
  return true;
}

const std::vector<DocumentedExample>& registeredExamples() {
  return examples();
}

}  // namespace varnock::docs
