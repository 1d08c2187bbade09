// SPDX-License-Identifier: MIT
// Test hook: captures event log entries in memory while in scope, and
// restores the process's previous back end afterwards.
#pragma once

#include <cerrno>
#include <memory>
#include <string>
#include <vector>

#include "eventLog/event_log.h"

namespace varnock::testing {

struct CapturedEntry {
  std::uint16_t type;
  std::uint16_t category;
  std::int32_t id;
  std::string source;
  std::string message;
};

class MemoryBackend final : public eventLog::Backend {
 public:
  int write(const eventLog::Entry& e) override {
    if (failWith != 0 && failures != 0) {
      if (failures > 0) --failures;
      return failWith;
    }
    entries.push_back({e.type, e.category, e.id, std::string(e.source), std::string(e.message)});
    return 0;
  }
  std::string describe() const override { return "memory"; }

  std::vector<CapturedEntry> entries;
  int failWith = 0;   // an errno value to fail writes with
  int failures = -1;  // how many writes to fail; -1 for every one
};

class CapturedEvents {
 public:
  CapturedEvents()
      : backend_(std::make_shared<MemoryBackend>()), previous_(eventLog::currentBackend()) {
    eventLog::setBackend(backend_);
  }
  ~CapturedEvents() { eventLog::setBackend(previous_); }
  CapturedEvents(const CapturedEvents&) = delete;
  CapturedEvents& operator=(const CapturedEvents&) = delete;

  const std::vector<CapturedEntry>& entries() const { return backend_->entries; }
  const CapturedEntry& last() const { return backend_->entries.back(); }
  std::size_t count() const { return backend_->entries.size(); }
  void failWritesWith(int code, int times = -1) {
    backend_->failWith = code;
    backend_->failures = times;
  }

 private:
  std::shared_ptr<MemoryBackend> backend_;
  std::shared_ptr<eventLog::Backend> previous_;
};

}  // namespace varnock::testing
