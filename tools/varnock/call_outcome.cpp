// SPDX-License-Identifier: MIT
#include "call_outcome.h"

namespace varnock::cli {

ExitStatus statusOf(const CallOutcome& outcome) {
  if (!outcome.refusals.empty() || outcome.newLastError) return kReportedFailure;
  if (outcome.method && outcome.result && outcome.result->type() == Variant::Type::Boolean &&
      !outcome.result->asBoolean()) {
    return kReportedFailure;
  }
  return kSuccess;
}

}  // namespace varnock::cli
