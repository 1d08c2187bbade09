// SPDX-License-Identifier: MIT
#include "command_line.h"

#include <string_view>

#include "exit_status.h"
#include "text_util.h"

namespace varnock::cli {

namespace {

// Reads the value of an option given as "--name VALUE" or "--name=VALUE".
class OptionReader {
 public:
  explicit OptionReader(const std::vector<std::string>& words) : words_(words) {}

  bool done() const { return next_ >= words_.size(); }
  const std::string& take() { return words_[next_++]; }

  std::string valueOf(std::string_view option, const std::optional<std::string>& given) {
    if (given) return *given;
    if (done()) throw UsageError(std::string(option) + " needs a value");
    return take();
  }

 private:
  const std::vector<std::string>& words_;
  std::size_t next_ = 0;
};

std::pair<std::string, std::string> assignment(const std::string& text) {
  const std::size_t equals = text.find('=');
  if (equals == std::string::npos || equals == 0) {
    throw UsageError("--set takes COLUMN=VALUE, not " + inQuotes(text));
  }
  return {text.substr(0, equals), text.substr(equals + 1)};
}

}  // namespace

CallRequest parseCallLine(const std::vector<std::string>& words) {
  CallRequest request;
  std::vector<std::string> plain;
  OptionReader reader(words);
  bool optionsEnded = false;
  while (!reader.done()) {
    const std::string& word = reader.take();
    if (optionsEnded || !word.starts_with("--")) {
      plain.push_back(word);
      continue;
    }
    if (word == "--") {
      optionsEnded = true;
      continue;
    }
    const std::size_t equals = word.find('=');
    const std::string option = word.substr(0, equals);
    const std::optional<std::string> inlineValue =
        equals == std::string::npos ? std::nullopt : std::optional(word.substr(equals + 1));
    if (option == "--dsn") {
      request.dsn = reader.valueOf(option, inlineValue);
    } else if (option == "--trace") {
      request.trace = reader.valueOf(option, inlineValue);
    } else if (option == "--set") {
      request.assignments.push_back(assignment(reader.valueOf(option, inlineValue)));
    } else if (option == "--json" && !inlineValue) {
      request.json = true;
    } else if (option == "--help" && !inlineValue) {
      request.help = true;
    } else {
      throw UsageError("unknown option " + inQuotes(word));
    }
  }
  if (request.help) return request;
  if (plain.size() < 2) throw UsageError("call needs a CLASS and a METHOD");
  request.className = plain[0];
  request.member = plain[1];
  request.arguments.assign(plain.begin() + 2, plain.end());
  return request;
}

}  // namespace varnock::cli
