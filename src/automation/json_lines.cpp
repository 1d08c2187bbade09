#include "automation/json_lines.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <ctime>

namespace varnock::jsonLines {

void appendString(std::string& out, std::string_view text) {
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

int writeWhole(int fd, const std::string& line) {
  const ssize_t written = ::write(fd, line.data(), line.size());
  if (written < 0) return errno;
  return static_cast<std::size_t>(written) == line.size() ? 0 : EIO;
}

int appendToFile(const std::string& path, const std::string& line) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
  if (fd < 0) return errno;
  const int code = writeWhole(fd, line);
  ::close(fd);
  return code;
}

}  // namespace varnock::jsonLines
