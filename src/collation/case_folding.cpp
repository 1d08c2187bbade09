// SPDX-License-Identifier: MIT
#include "collation/case_folding.h"

#include <algorithm>

#include "collation/folding_runs.h"

namespace varnock::collation {

char32_t foldBeyondAscii(char32_t unit) noexcept {
  const FoldingRun* end = kFoldingRuns + kFoldingRunCount;
  // The last run that starts at or before the unit.
  const FoldingRun* run = std::upper_bound(
      kFoldingRuns, end, unit, [](char32_t u, const FoldingRun& r) { return u < r.first; });
  if (run == kFoldingRuns) return unit;
  --run;
  const char32_t offset = unit - run->first;
  if (offset % run->stride != 0 || offset / run->stride >= run->count) return unit;
  return static_cast<char32_t>(static_cast<std::int64_t>(unit) + run->delta);
}

}  // namespace varnock::collation
