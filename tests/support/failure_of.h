// SPDX-License-Identifier: MIT
// Test hooks: the AutomationError a call raises, or its number (0 when it
// raises none).
#pragma once

#include <gtest/gtest.h>

#include <cstdint>

#include "varnock/automation_error.h"

namespace varnock::testing {

inline std::int32_t failureOf(auto&& call) {
  try {
    call();
  } catch (const AutomationError& e) {
    return e.number();
  }
  return 0;
}

// The AutomationError a call raises; fails the test when it raises none.
inline AutomationError raisedBy(auto&& call) {
  try {
    call();
  } catch (const AutomationError& e) {
    return e;
  }
  ADD_FAILURE() << "no failure";
  return AutomationError(0, "", "");
}

}  // namespace varnock::testing
