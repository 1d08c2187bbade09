// Test hook: the number of the AutomationError a call raises, or 0 when it
// raises none.
#pragma once

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

}  // namespace varnock::testing
