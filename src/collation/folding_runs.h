// SPDX-License-Identifier: MIT
// The case-folding data as case_folding_table.cpp (generated) holds it: runs
// of code points first, first + stride, ... (count of them) that each fold to
// themselves plus delta. Runs are sorted by first and never overlap.
#pragma once

#include <cstddef>
#include <cstdint>

namespace varnock::collation {

struct FoldingRun {
  std::uint32_t first;
  std::uint16_t count;
  std::uint8_t stride;  // 1, or 2 for blocks of alternating upper and lower case
  std::int32_t delta;
};

extern const FoldingRun kFoldingRuns[];
extern const std::size_t kFoldingRunCount;
extern const char* const kFoldingUnicodeVersion;  // "14.0.0"

}  // namespace varnock::collation
