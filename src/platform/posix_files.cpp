// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/files.h"

namespace varnock::platform {

namespace {

int writeWhole(int fd, const std::string& line) {
  const ssize_t written = ::write(fd, line.data(), line.size());
  if (written < 0) return errno;
  return static_cast<std::size_t>(written) == line.size() ? 0 : EIO;
}

}  // namespace

int appendLine(const std::string& path, const std::string& line) {
  // Owner-only: the entries quote statements, passwords included. Never
  // blocking: a FIFO without a reader fails to open (ENXIO) and a full one
  // fails to write (EAGAIN), rather than holding the caller forever.
  const int fd = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600);
  if (fd < 0) return errno;
  const int code = writeWhole(fd, line);
  ::close(fd);
  return code;
}

int writeStandardError(const std::string& line) {
  return writeWhole(STDERR_FILENO, line);
}

std::optional<FileIdentity> fileIdentity(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return FileIdentity{static_cast<unsigned long long>(status.st_dev),
                      static_cast<unsigned long long>(status.st_ino)};
}

std::tm utcTime(std::time_t seconds) {
  std::tm utc{};
  gmtime_r(&seconds, &utc);
  return utc;
}

}  // namespace varnock::platform
