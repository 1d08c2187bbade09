// SPDX-License-Identifier: MIT
// Benchmark support: counts every heap block the process takes through
// malloc, calloc and realloc (SQLite's and the C++ library's alike, since
// operator new takes its blocks from malloc): bytes live now, and the peak
// of live bytes since the last resetPeak. Link malloc_counter.cpp to enable
// it; it replaces the C allocator's entry points for the whole program.
#pragma once

#include <cstddef>

namespace varnock::bench::process {

std::size_t liveBytes();
std::size_t peakLiveBytes();
void resetPeak();  // the peak restarts from the live bytes of now

}  // namespace varnock::bench::process
