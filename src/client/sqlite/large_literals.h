// SPDX-License-Identifier: MIT
// Large text literals, taken out of a statement before it is carried over to
// SQLite and bound as parameters instead: the statement is then not copied
// again with the value in it, and SQLite does not keep a copy in its program.
// What the statement means does not change: a bound text is the same TEXT
// value the literal stands for, with the same comparisons and affinities.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace varnock::client::sqlite {

// Literals shorter than this stay in the statement.
inline constexpr std::size_t kLargeLiteralBytes = 64 * 1024;

class LargeLiterals {
 public:
  // Scans the statement; when no literal is large, nothing is copied.
  explicit LargeLiterals(std::string_view statement);
  LargeLiterals(const LargeLiterals&) = delete;
  LargeLiterals& operator=(const LargeLiterals&) = delete;

  bool any() const noexcept { return !values_.empty(); }
  // The statement with each large literal replaced by ?1, ?2, ...
  const std::string& statement() const noexcept { return statement_; }
  // The texts of ?1, ?2, ...: views into the scanned statement where the
  // literal holds no doubled apostrophe, otherwise into copies kept here.
  const std::vector<std::string_view>& values() const noexcept { return values_; }

 private:
  std::string statement_;
  std::vector<std::string_view> values_;
  std::deque<std::string> unescaped_;
};

}  // namespace varnock::client::sqlite
