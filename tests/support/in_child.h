// SPDX-License-Identifier: MIT
// Test hook: runs a piece of a test in a forked child, so that a call that
// would hang or crash fails the test instead of stopping the suite.
#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <functional>
#include <thread>

namespace varnock::testing {

// The child's exit status (the body's result), or -1 when it had not ended
// within `limit` (it is killed) or did not exit normally.
inline int inChild(const std::function<int()>& body,
                   std::chrono::milliseconds limit = std::chrono::seconds(20)) {
  const pid_t child = ::fork();
  if (child == 0) {
    int status = 125;
    try {
      status = body();
    } catch (...) {
      status = 124;
    }
    ::_exit(status);
  }
  const auto deadline = std::chrono::steady_clock::now() + limit;
  int status = 0;
  while (::waitpid(child, &status, WNOHANG) == 0) {
    if (std::chrono::steady_clock::now() > deadline) {
      ::kill(child, SIGKILL);
      ::waitpid(child, &status, 0);
      return -1;
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace varnock::testing
