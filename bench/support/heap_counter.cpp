// SPDX-License-Identifier: MIT
// Replaces the global operator new and delete with counting versions. Each
// block carries its size in a header of one max_align_t, so that delete knows
// what it returns; kept in a file of its own so that no caller inlines them.
#include "support/heap_counter.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> gTotal{0};
std::atomic<std::size_t> gLive{0};
std::atomic<std::size_t> gPeak{0};
constexpr std::size_t kHeader = alignof(std::max_align_t);

void* allocate(std::size_t size) {
  auto* block = static_cast<unsigned char*>(std::malloc(size + kHeader));
  if (block == nullptr) throw std::bad_alloc();
  *reinterpret_cast<std::size_t*>(block) = size;
  gTotal.fetch_add(size, std::memory_order_relaxed);
  const std::size_t live = gLive.fetch_add(size, std::memory_order_relaxed) + size;
  std::size_t peak = gPeak.load(std::memory_order_relaxed);
  while (live > peak && !gPeak.compare_exchange_weak(peak, live, std::memory_order_relaxed)) {
  }
  return block + kHeader;
}

void release(void* p) noexcept {
  if (p == nullptr) return;
  auto* block = static_cast<unsigned char*>(p) - kHeader;
  gLive.fetch_sub(*reinterpret_cast<std::size_t*>(block), std::memory_order_relaxed);
  std::free(block);
}

}  // namespace

void* operator new(std::size_t size) {
  return allocate(size);
}
void* operator new[](std::size_t size) {
  return allocate(size);
}
void operator delete(void* p) noexcept {
  release(p);
}
void operator delete[](void* p) noexcept {
  release(p);
}
void operator delete(void* p, std::size_t) noexcept {
  release(p);
}
void operator delete[](void* p, std::size_t) noexcept {
  release(p);
}

namespace varnock::bench {

std::size_t allocatedBytes() {
  return gTotal.load(std::memory_order_relaxed);
}
std::size_t liveBytes() {
  return gLive.load(std::memory_order_relaxed);
}
std::size_t peakLiveBytes() {
  return gPeak.load(std::memory_order_relaxed);
}
void resetPeak() {
  gPeak.store(gLive.load(std::memory_order_relaxed), std::memory_order_relaxed);
}

}  // namespace varnock::bench
