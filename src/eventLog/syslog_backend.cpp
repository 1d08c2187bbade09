// SPDX-License-Identifier: MIT
// The syslog back end: one datagram per entry to the local syslog socket, in
// the traditional form "<priority>Mmm dd hh:mm:ss ident[pid]: text", with the
// event's identifier, type and category in the text. syslog(3) would drop an
// entry silently when no daemon listens; writing to the socket ourselves
// makes every undelivered entry a failed write.
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <ctime>
#include <string>

#include "eventLog/backends.h"

namespace varnock::eventLog {

namespace {

constexpr int kUserFacility = 1 << 3;
constexpr int kErrorPriority = 3;
constexpr int kWarningPriority = 4;
constexpr int kInformationPriority = 6;
// A daemon that cannot take an entry within this time fails the write
// instead of holding the caller.
constexpr int kSendTimeoutMilliseconds = 2000;

int priorityOf(std::uint16_t type) {
  switch (type) {
    case kErrorType:
      return kUserFacility | kErrorPriority;
    case kWarningType:
      return kUserFacility | kWarningPriority;
    default:
      return kUserFacility | kInformationPriority;
  }
}

std::string datagramOf(const Entry& entry) {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char stamp[32];
  std::strftime(stamp, sizeof stamp, "%b %e %H:%M:%S", &local);
  char head[96];
  std::snprintf(head, sizeof head, "<%d>%s ", priorityOf(entry.type), stamp);
  char fields[96];
  std::snprintf(fields, sizeof fields,
                "[%d]: event %d type %u category %u: ", static_cast<int>(::getpid()), entry.id,
                static_cast<unsigned>(entry.type), static_cast<unsigned>(entry.category));
  std::string text = head;
  text.append(entry.source).append(fields).append(entry.message);
  return text;
}

class SocketCloser {
 public:
  explicit SocketCloser(int fd) : fd_(fd) {}
  ~SocketCloser() {
    if (fd_ >= 0) ::close(fd_);
  }
  SocketCloser(const SocketCloser&) = delete;
  SocketCloser& operator=(const SocketCloser&) = delete;

 private:
  int fd_;
};

// Sends one datagram to the socket at `path`; 0, or the errno of the failure.
int sendTo(const std::string& path, const std::string& datagram) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return ENAMETOOLONG;
  path.copy(address.sun_path, path.size());
  const int fd = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  if (fd < 0) return errno;
  const SocketCloser closer(fd);
  if (::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
    return errno;
  }
  for (;;) {
    if (::send(fd, datagram.data(), datagram.size(), MSG_NOSIGNAL) >= 0) return 0;
    if (errno == EINTR) continue;
    if (errno != EAGAIN) return errno;
    pollfd ready{fd, POLLOUT, 0};
    const int polled = ::poll(&ready, 1, kSendTimeoutMilliseconds);
    if (polled == 0) return ETIMEDOUT;
    if (polled < 0 && errno != EINTR) return errno;
  }
}

class SyslogBackend final : public Backend {
 public:
  explicit SyslogBackend(std::string socketPath) : socketPath_(std::move(socketPath)) {}
  int write(const Entry& entry) override { return sendTo(socketPath_, datagramOf(entry)); }
  std::string describe() const override { return "syslog"; }

 private:
  std::string socketPath_;
};

}  // namespace

bool syslogListens(const std::string& socketPath) {
  return ::access(socketPath.c_str(), W_OK) == 0;
}

std::shared_ptr<Backend> makeSyslogBackend(std::string socketPath) {
  return std::make_shared<SyslogBackend>(std::move(socketPath));
}

}  // namespace varnock::eventLog
