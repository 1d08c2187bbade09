// SPDX-License-Identifier: MIT
// Benchmark support: counts the heap that this program allocates through
// operator new (total bytes ever allocated, bytes live now, and the peak of
// live bytes since the last resetPeak). Link heap_counter.cpp to enable it.
#pragma once

#include <benchmark/benchmark.h>

#include <cstddef>

namespace varnock::bench {

std::size_t allocatedBytes();  // running total of allocations
std::size_t liveBytes();
std::size_t peakLiveBytes();
void resetPeak();  // the peak restarts from the live bytes of now

// Runs `body` once per iteration and reports, as the counter "peak_heap", the
// most bytes it held live at once beyond what was live before it.
template <class Body>
void measurePeakHeap(benchmark::State& state, Body body) {
  std::size_t peak = 0;
  for (auto _ : state) {
    resetPeak();
    const std::size_t before = liveBytes();
    body();
    peak = peakLiveBytes() - before;
  }
  state.counters["peak_heap"] = static_cast<double>(peak);
}

}  // namespace varnock::bench
