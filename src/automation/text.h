// SPDX-License-Identifier: MIT
// Text as the register treats names, keywords and values: letter case folded
// for ASCII letters only, as the en-US rule and SQL Server's default collation
// fold them, and blanks (spaces and tabs) trimmed.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "varnock/conversions.h"  // equalsIgnoringCase

namespace varnock {

constexpr char lowerCaseOf(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string lowerCase(std::string_view text) {
  std::string folded(text);
  for (char& c : folded)
    c = lowerCaseOf(c);
  return folded;
}

// The text without the blanks (spaces and tabs) around it.
constexpr std::string_view trimBlanks(std::string_view s) noexcept {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t'))
    s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t'))
    s.remove_suffix(1);
  return s;
}

// A hash for maps keyed by std::string that are looked up by string_view
// without a copy: std::unordered_map<std::string, T, TextHash, std::equal_to<>>.
struct TextHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view text) const noexcept {
    return std::hash<std::string_view>{}(text);
  }
};

}  // namespace varnock
