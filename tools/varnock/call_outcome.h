// SPDX-License-Identifier: MIT
// What one "varnock call" came to, before it is written as text or JSON.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "exit_status.h"
#include "varnock/variant.h"

namespace varnock::cli {

struct NamedValue {
  std::string name;
  Variant value;
};

// A --set value the object kept out, with the message it gave.
struct Refusal {
  std::string column;
  Variant value;
  std::string message;
};

struct CallOutcome {
  std::string member;   // as the interface spells it
  bool method = false;  // a method, not a property read
  // Absent when a refused --set value stopped the call before it was made.
  std::optional<Variant> result;
  // The object's columns, after a loading method that loaded a row.
  std::optional<std::vector<NamedValue>> object;
  // By-reference arguments the call changed.
  std::vector<NamedValue> byRef;
  std::string lastError;
  bool newLastError = false;
  std::vector<Refusal> refusals;
};

// 1 for refusals, a method's False result or a new last error message;
// otherwise 0. A property that reads False is an answer, not a failure.
ExitStatus statusOf(const CallOutcome& outcome);

}  // namespace varnock::cli
