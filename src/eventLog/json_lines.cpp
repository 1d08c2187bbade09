// SPDX-License-Identifier: MIT
// The JSON Lines back ends: a file, appended to by every process that names
// it, and standard error. Each entry is one write(2) of one whole line, so
// entries from concurrent writers never interleave.

#include "automation/json_lines.h"
#include "eventLog/backends.h"
#include "platform/files.h"

namespace varnock::eventLog {

namespace {

class FileBackend final : public Backend {
 public:
  explicit FileBackend(std::string path) : path_(std::move(path)) {}

  // Opened per entry, as the event source is registered per entry: nothing
  // is held between writes, and a rotated file is picked up at once.
  int write(const Entry& entry) override { return platform::appendLine(path_, jsonLine(entry)); }
  std::string describe() const override { return "file:" + path_; }

 private:
  std::string path_;
};

class StderrBackend final : public Backend {
 public:
  int write(const Entry& entry) override { return platform::writeStandardError(jsonLine(entry)); }
  std::string describe() const override { return "stderr"; }
};

}  // namespace

std::string jsonLine(const Entry& entry) {
  std::string line;
  line.reserve(96 + entry.source.size() + entry.message.size());
  line += "{\"time\":\"" + jsonLines::utcTimestamp() + "\",\"type\":" + std::to_string(entry.type) +
          ",\"category\":" + std::to_string(entry.category) +
          ",\"id\":" + std::to_string(entry.id) + ",\"source\":";
  jsonLines::appendString(line, entry.source);
  line += ",\"message\":";
  jsonLines::appendString(line, entry.message);
  line += "}\n";
  return line;
}

std::shared_ptr<Backend> makeFileBackend(std::string path) {
  return std::make_shared<FileBackend>(std::move(path));
}

std::shared_ptr<Backend> makeStderrBackend() {
  return std::make_shared<StderrBackend>();
}

}  // namespace varnock::eventLog
