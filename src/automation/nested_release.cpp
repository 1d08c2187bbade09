// SPDX-License-Identifier: MIT
#include "automation/nested_release.h"

#include <memory>

namespace varnock {

namespace {

struct Releaser {
  bool draining = false;
  std::vector<std::shared_ptr<Object>> pending;
};

thread_local Releaser releaser;

void take(Variant& value) {
  if (!value.isObject()) return;
  releaser.pending.push_back(value.asObject());
  value = Variant();
}

// Only the outermost release drains; a release that happens while draining
// (an object of the queue letting go of its own objects) just queues them.
void drain() noexcept {
  if (releaser.draining) return;
  releaser.draining = true;
  while (!releaser.pending.empty()) {
    std::shared_ptr<Object> next = std::move(releaser.pending.back());
    releaser.pending.pop_back();
    next.reset();
  }
  releaser.draining = false;
}

}  // namespace

void releaseNested(std::vector<Variant>& values) noexcept {
  for (Variant& value : values)
    take(value);
  drain();
}

void releaseNested(std::vector<std::pair<std::string, Variant>>& entries) noexcept {
  for (auto& entry : entries)
    take(entry.second);
  drain();
}

}  // namespace varnock
