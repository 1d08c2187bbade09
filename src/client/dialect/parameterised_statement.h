// SPDX-License-Identifier: MIT
// A statement's literal values taken out as parameters, so that statements
// that differ only in those values share one prepared statement, as SQL
// Server's simple parameterisation shares one plan. Only what cannot change
// the statement's meaning is taken out: text literals and whole numbers in
// the conditions, values and limits of SELECT, INSERT, UPDATE and DELETE.
// Literals in a result column list (their text names the column), in ORDER BY
// and GROUP BY (a number there is a column's position), after AS, and
// numbers that are not plain integers (a decimal is read by the database's
// own conversion) stay where they are.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace varnock::client::dialect {

struct LiteralValue {
  enum class Kind { Text, Integer };
  Kind kind;
  std::string text;          // Text: the value, apostrophes undoubled
  std::int64_t integer = 0;  // Integer
};

struct ParameterisedStatement {
  // The statement with each literal taken out written as ?N, numbered from
  // the first number given.
  std::string text;
  std::vector<LiteralValue> values;  // the values of ?first, ?first+1, ...
};

// `statement` is in SQLite's dialect, as carried over; parameters it holds
// already (?1, ?2, ...) are left alone, so `firstNumber` must be past them.
ParameterisedStatement parameterise(std::string_view statement, int firstNumber = 1);

}  // namespace varnock::client::dialect
