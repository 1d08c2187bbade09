// Benchmark support: counts the heap that this program allocates through
// operator new (total bytes ever allocated, bytes live now, and the peak of
// live bytes since the last resetPeak). Link heap_counter.cpp to enable it.
#pragma once

#include <cstddef>

namespace varnock::bench {

std::size_t allocatedBytes();  // running total of allocations
std::size_t liveBytes();
std::size_t peakLiveBytes();
void resetPeak();  // the peak restarts from the live bytes of now

}  // namespace varnock::bench
