// SPDX-License-Identifier: MIT
#include "sql/trace.h"

#include <atomic>
#include <cstdlib>
#include <memory>
#include <mutex>

#include "automation/json_lines.h"
#include "platform/files.h"
#include "varnock/sql_trace.h"

namespace varnock::sql {

namespace {

struct TraceSetting {
  std::mutex mutex;
  std::shared_ptr<const std::string> path;  // null when off
  std::atomic<bool> on{false};
};

TraceSetting& setting() {
  static TraceSetting* s = [] {
    static TraceSetting instance;
    if (const char* path = std::getenv("VARNOCK_SQL_TRACE"); path != nullptr && *path != '\0') {
      instance.path = std::make_shared<const std::string>(path);
      instance.on = true;
    }
    return &instance;
  }();
  return *s;
}

std::shared_ptr<const std::string> currentPath() {
  TraceSetting& s = setting();
  std::lock_guard lock(s.mutex);
  return s.path;
}

}  // namespace

bool tracing() {
  return setting().on.load(std::memory_order_relaxed);
}

void traceStatement(std::string_view statement, std::string_view error,
                    std::chrono::microseconds elapsed) {
  const auto path = currentPath();
  if (!path) return;
  std::string line = "{\"time\":\"" + jsonLines::utcTimestamp() + "\",\"sql\":";
  jsonLines::appendString(line, statement);
  line += error.empty() ? ",\"ok\":true" : ",\"ok\":false,\"error\":";
  if (!error.empty()) jsonLines::appendString(line, error);
  line += ",\"elapsed_us\":" + std::to_string(elapsed.count()) + "}\n";
  static_cast<void>(platform::appendLine(*path, line));
}

}  // namespace varnock::sql

namespace varnock {

void setSqlTrace(const std::string& path) {
  sql::TraceSetting& s = sql::setting();
  std::lock_guard lock(s.mutex);
  s.path = path.empty() ? nullptr : std::make_shared<const std::string>(path);
  s.on = !path.empty();
}

std::string sqlTrace() {
  const auto path = sql::currentPath();
  return path ? *path : std::string();
}

}  // namespace varnock
