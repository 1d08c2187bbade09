// SPDX-License-Identifier: MIT
// Connection strings in the OLE DB form: "key=value" pairs separated by ";",
// keys compared without regard to case, values optionally quoted with " or '
// (a doubled quote inside stands for one). A segment without "=" is ignored.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace varnock::client {

class ConnectionString {
 public:
  explicit ConnectionString(std::string_view text);

  // The value of a key (the last one given wins), trimmed of surrounding blanks.
  std::optional<std::string> get(std::string_view key) const;
  const std::vector<std::pair<std::string, std::string>>& pairs() const { return pairs_; }

  // The text to write after "key=" so that the value reads back exactly:
  // the value itself where it would, otherwise the value in double quotes
  // with its double quotes doubled.
  static std::string valueText(std::string_view value);

 private:
  std::vector<std::pair<std::string, std::string>> pairs_;
};

}  // namespace varnock::client
