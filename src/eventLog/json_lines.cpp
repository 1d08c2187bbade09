// The JSON Lines back ends: a file, appended to by every process that names
// it, and standard error. Each entry is one write(2) of one whole line, so
// entries from concurrent writers never interleave.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>

#include "eventLog/backends.h"

namespace varnock::eventLog {

namespace {

void appendEscaped(std::string& out, std::string_view text) {
  out.push_back('"');
  for (const char c : text) {
    switch (c) {
      case '"':
        out += "\\\"";
        break;
      case '\\':
        out += "\\\\";
        break;
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20) {
          char escape[8];
          std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned>(c));
          out += escape;
        } else {
          out.push_back(c);
        }
    }
  }
  out.push_back('"');
}

std::string utcTimestamp() {
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  const auto millis =
      std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
  std::tm utc{};
  gmtime_r(&seconds, &utc);
  char text[80];
  std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", utc.tm_year + 1900,
                utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec,
                static_cast<int>(millis));
  return text;
}

// 0, or the errno of a write that failed or fell short.
int writeWhole(int fd, const std::string& line) {
  const ssize_t written = ::write(fd, line.data(), line.size());
  if (written < 0) return errno;
  return static_cast<std::size_t>(written) == line.size() ? 0 : EIO;
}

class FileBackend final : public Backend {
 public:
  explicit FileBackend(std::string path) : path_(std::move(path)) {}

  int write(const Entry& entry) override {
    // Opened per entry, as the event source is registered per entry: nothing
    // is held between writes, and a rotated file is picked up at once.
    const int fd = ::open(path_.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) return errno;
    const int code = writeWhole(fd, jsonLine(entry));
    ::close(fd);
    return code;
  }
  std::string describe() const override { return "file:" + path_; }

 private:
  std::string path_;
};

class StderrBackend final : public Backend {
 public:
  int write(const Entry& entry) override { return writeWhole(STDERR_FILENO, jsonLine(entry)); }
  std::string describe() const override { return "stderr"; }
};

}  // namespace

std::string jsonLine(const Entry& entry) {
  std::string line;
  line.reserve(96 + entry.source.size() + entry.message.size());
  line += "{\"time\":\"" + utcTimestamp() + "\",\"type\":" + std::to_string(entry.type) +
          ",\"category\":" + std::to_string(entry.category) +
          ",\"id\":" + std::to_string(entry.id) + ",\"source\":";
  appendEscaped(line, entry.source);
  line += ",\"message\":";
  appendEscaped(line, entry.message);
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
