// SPDX-License-Identifier: MIT
#include "client/connection_string.h"

#include "automation/text.h"

namespace varnock::client {

ConnectionString::ConnectionString(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size()) {
    // The key runs to "=" or, for a segment without one, to the next ";".
    const std::size_t equals = text.find_first_of("=;", i);
    if (equals == std::string_view::npos || text[equals] == ';') {
      i = equals == std::string_view::npos ? text.size() : equals + 1;
      continue;
    }
    const std::string key(trimBlanks(text.substr(i, equals - i)));
    std::size_t j = equals + 1;
    while (j < text.size() && (text[j] == ' ' || text[j] == '\t'))
      ++j;
    std::string value;
    if (j < text.size() && (text[j] == '"' || text[j] == '\'')) {
      const char quote = text[j++];
      for (; j < text.size(); ++j) {
        if (text[j] == quote) {
          if (j + 1 < text.size() && text[j + 1] == quote) {
            value.push_back(quote);
            ++j;
          } else {
            ++j;
            break;
          }
        } else {
          value.push_back(text[j]);
        }
      }
      const std::size_t end = text.find(';', j);
      i = end == std::string_view::npos ? text.size() : end + 1;
    } else {
      const std::size_t end = text.find(';', j);
      value =
          std::string(trimBlanks(text.substr(j, end == std::string_view::npos ? end : end - j)));
      i = end == std::string_view::npos ? text.size() : end + 1;
    }
    if (!key.empty()) pairs_.emplace_back(key, std::move(value));
  }
}

std::optional<std::string> ConnectionString::get(std::string_view key) const {
  for (auto it = pairs_.rbegin(); it != pairs_.rend(); ++it) {
    if (equalsIgnoringCase(it->first, key)) return it->second;
  }
  return std::nullopt;
}

std::string ConnectionString::valueText(std::string_view value) {
  std::string plain = "k=";
  plain.append(value);
  if (ConnectionString(plain).get("k") == value) return std::string(value);
  std::string quoted = "\"";
  for (const char c : value) {
    quoted.push_back(c);
    if (c == '"') quoted.push_back('"');
  }
  return quoted + "\"";
}

}  // namespace varnock::client
