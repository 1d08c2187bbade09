// SPDX-License-Identifier: MIT
// Records statements in the SQL trace when it is on.
#pragma once

#include <chrono>
#include <string_view>

namespace varnock::sql {

// Whether the trace is on; cheap, so callers can skip the timing when it is off.
bool tracing();

// Appends one entry; `error` is empty when the statement succeeded. A trace
// that cannot be written is dropped silently: it must never fail a call.
void traceStatement(std::string_view statement, std::string_view error,
                    std::chrono::microseconds elapsed);

}  // namespace varnock::sql
