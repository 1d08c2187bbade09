// SPDX-License-Identifier: MIT
#include "value_files.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

#include "exit_status.h"
#include "value_notation.h"

namespace varnock::cli {

namespace {

std::string everything(std::istream& in) {
  return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

}  // namespace

Variant ValueReader::read(std::string_view word) {
  if (!word.starts_with('@')) return parseValue(word);
  const std::string path(word.substr(1));
  if (path == "-") {
    if (standardInputTaken_) throw UsageError("@- may stand for one value only");
    standardInputTaken_ = true;
    std::string text = everything(standardInput_);
    if (standardInput_.bad()) throw UsageError("standard input could not be read");
    return Variant(std::move(text));
  }
  if (path.empty()) throw UsageError("@ needs a file name (or - for standard input)");
  std::ifstream file(path, std::ios::binary);
  if (!file) throw UsageError("cannot read " + path + ": " + std::strerror(errno));
  std::string text = everything(file);
  if (file.bad()) throw UsageError("cannot read " + path + ": " + std::strerror(errno));
  return Variant(std::move(text));
}

}  // namespace varnock::cli
