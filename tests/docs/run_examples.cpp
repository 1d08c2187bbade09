// SPDX-License-Identifier: MIT
// Runs every documented example, each in a new folder of its own inside one
// temporary folder, so that examples which create a register by a relative
// path never meet each other's files. An example passes when it returns; one
// that raises fails the run, and a failed assert stops it. The temporary
// folder is removed when every example passed and kept otherwise.
// Usage: documented_examples
#include <stdlib.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <tuple>
#include <vector>

#include "docs/example_registry.h"
#include "varnock/automation_error.h"

namespace {

namespace fs = std::filesystem;
using varnock::docs::DocumentedExample;

fs::path newTemporaryFolder() {
  std::string pattern = (fs::temp_directory_path() / "varnock-examples-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  return pattern;
}

// Why the example failed, or "" when it ran to its end.
std::string failureOf(const DocumentedExample& example) {
  try {
    example.run();
    return {};
  } catch (const varnock::AutomationError& e) {
    return "raised AutomationError " + std::to_string(e.number()) + " (" + e.source() +
           "): " + e.description();
  } catch (const std::exception& e) {
    return std::string("raised ") + e.what();
  }
}

}  // namespace

int main() {
  std::vector<DocumentedExample> examples = varnock::docs::registeredExamples();
  if (examples.empty()) {
    std::cerr << "no documented examples were compiled in\n";
    return 1;
  }
  std::sort(examples.begin(), examples.end(), [](const auto& a, const auto& b) {
    return std::tie(a.document, a.line) < std::tie(b.document, b.line);
  });
  const fs::path start = fs::current_path();
  const fs::path root = newTemporaryFolder();
  int failed = 0;
  for (std::size_t n = 0; n < examples.size(); ++n) {
    const DocumentedExample& example = examples[n];
    const fs::path folder = root / std::to_string(n + 1);
    fs::create_directory(folder);
    fs::current_path(folder);
    const std::string failure = failureOf(example);
    fs::current_path(start);
    std::cout << example.document << ":" << example.line << ": "
              << (failure.empty() ? "ran" : failure) << std::endl;
    if (!failure.empty()) ++failed;
  }
  if (failed == 0) {
    fs::remove_all(root);
  } else {
    std::cerr << failed << " example(s) failed; their folders are kept in " << root << "\n";
  }
  return failed == 0 ? 0 : 1;
}
