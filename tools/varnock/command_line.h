// SPDX-License-Identifier: MIT
// The command line of "varnock call": the class, the member, the argument
// texts and the options, as written. Values are read later, by their notation.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace varnock::cli {

struct CallRequest {
  std::string className;
  std::string member;
  std::vector<std::string> arguments;                            // positional and name=value
  std::vector<std::pair<std::string, std::string>> assignments;  // --set COLUMN=VALUE
  std::optional<std::string> dsn;
  std::optional<std::string> trace;
  bool json = false;
  bool help = false;
};

// The words after "call". Options may stand anywhere ("--dsn X" or
// "--dsn=X"); "--" makes every later word an argument. Raises UsageError.
CallRequest parseCallLine(const std::vector<std::string>& words);

}  // namespace varnock::cli
