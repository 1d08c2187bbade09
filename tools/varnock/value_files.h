// SPDX-License-Identifier: MIT
// Values too long for a command line: "@FILE" stands for the text that FILE
// holds and "@-" for what standard input holds, each to its last byte (a
// final newline is part of the value). Every other word is read by its
// notation (value_notation.h); "str:@x" is the text "@x".
#pragma once

#include <istream>
#include <string_view>

#include "varnock/variant.h"

namespace varnock::cli {

class ValueReader {
 public:
  explicit ValueReader(std::istream& standardInput) : standardInput_(standardInput) {}

  // Raises UsageError for a file that cannot be read, for "@-" given twice
  // (standard input holds one value) and for bad notation.
  Variant read(std::string_view word);

 private:
  std::istream& standardInput_;
  bool standardInputTaken_ = false;
};

}  // namespace varnock::cli
