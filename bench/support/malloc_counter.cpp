// SPDX-License-Identifier: MIT
// Replaces malloc, calloc, realloc and free with counting versions over the
// C library's own (glibc's __libc_* entry points), counting each block's
// usable size.
#include "support/malloc_counter.h"

#include <malloc.h>

#include <atomic>

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void __libc_free(void* block);
}

namespace {

std::atomic<std::size_t> gLive{0};
std::atomic<std::size_t> gPeak{0};

void counted(void* block) {
  if (block == nullptr) return;
  const std::size_t live = gLive.fetch_add(malloc_usable_size(block)) + malloc_usable_size(block);
  std::size_t peak = gPeak.load(std::memory_order_relaxed);
  while (live > peak && !gPeak.compare_exchange_weak(peak, live)) {
  }
}

void uncounted(void* block) {
  if (block != nullptr) gLive.fetch_sub(malloc_usable_size(block));
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) {
  void* block = __libc_malloc(size);
  counted(block);
  return block;
}

void* calloc(std::size_t count, std::size_t size) {
  void* block = __libc_calloc(count, size);
  counted(block);
  return block;
}

void* realloc(void* old, std::size_t size) {
  const std::size_t before = old == nullptr ? 0 : malloc_usable_size(old);
  void* block = __libc_realloc(old, size);
  if (block == nullptr) return nullptr;  // the old block stays as it was
  gLive.fetch_sub(before);
  counted(block);
  return block;
}

void free(void* block) {
  uncounted(block);
  __libc_free(block);
}

}  // extern "C"

namespace varnock::bench::process {

std::size_t liveBytes() {
  return gLive.load();
}
std::size_t peakLiveBytes() {
  return gPeak.load();
}
void resetPeak() {
  gPeak.store(gLive.load());
}

}  // namespace varnock::bench::process
