// Test hook: runs a program in a folder with a chosen environment and
// collects its exit status, standard output and standard error.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace varnock::testing {

struct ProgramRun {
  int status = -1;  // the exit status; -1 when the program did not exit normally
  std::string out;
  std::string err;
};

// Environment changes for the child: a value sets the variable, nullopt
// removes it.
using EnvironmentChanges = std::map<std::string, std::optional<std::string>>;

// The program's path on PATH, or nullopt.
inline std::optional<std::filesystem::path> findOnPath(const std::string& program) {
  const char* path = std::getenv("PATH");
  if (path == nullptr) return std::nullopt;
  std::string folders = path;
  std::size_t start = 0;
  while (start <= folders.size()) {
    const std::size_t end = std::min(folders.find(':', start), folders.size());
    const std::filesystem::path candidate =
        std::filesystem::path(folders.substr(start, end - start)) / program;
    if (::access(candidate.c_str(), X_OK) == 0) return candidate;
    start = end + 1;
  }
  return std::nullopt;
}

inline ProgramRun runProgram(const std::filesystem::path& program,
                             const std::vector<std::string>& arguments,
                             const std::filesystem::path& folder,
                             const EnvironmentChanges& environment = {}) {
  int outPipe[2], errPipe[2];
  if (::pipe(outPipe) != 0 || ::pipe(errPipe) != 0) return {};
  const pid_t child = ::fork();
  if (child == 0) {
    ::dup2(outPipe[1], STDOUT_FILENO);
    ::dup2(errPipe[1], STDERR_FILENO);
    for (const int fd : {outPipe[0], outPipe[1], errPipe[0], errPipe[1]})
      ::close(fd);
    if (::chdir(folder.c_str()) != 0) ::_exit(127);
    for (const auto& [name, value] : environment) {
      if (value) {
        ::setenv(name.c_str(), value->c_str(), 1);
      } else {
        ::unsetenv(name.c_str());
      }
    }
    std::vector<char*> argv;
    std::string programText = program.string();
    argv.push_back(programText.data());
    std::vector<std::string> copies(arguments);
    for (std::string& a : copies)
      argv.push_back(a.data());
    argv.push_back(nullptr);
    ::execv(programText.c_str(), argv.data());
    ::_exit(127);
  }
  ::close(outPipe[1]);
  ::close(errPipe[1]);
  ProgramRun run;
  // Both pipes are drained together so neither can fill up and stall the child.
  pollfd fds[2] = {{outPipe[0], POLLIN, 0}, {errPipe[0], POLLIN, 0}};
  std::string* sinks[2] = {&run.out, &run.err};
  int open = 2;
  // A program that hangs is killed, so a fault shows as a failed test.
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  bool killed = false;
  while (open > 0) {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(
        deadline - std::chrono::steady_clock::now());
    const int ready = left.count() > 0 ? ::poll(fds, 2, static_cast<int>(left.count())) : 0;
    if (ready < 0 && errno == EINTR) continue;
    if (ready <= 0) {
      ::kill(child, SIGKILL);
      killed = true;
      break;
    }
    for (int i = 0; i < 2; ++i) {
      if (fds[i].fd < 0 || fds[i].revents == 0) continue;
      char buffer[4096];
      const ssize_t n = ::read(fds[i].fd, buffer, sizeof buffer);
      if (n > 0) {
        sinks[i]->append(buffer, static_cast<std::size_t>(n));
      } else {
        ::close(fds[i].fd);
        fds[i].fd = -1;
        --open;
      }
    }
  }
  for (const pollfd& p : fds) {
    if (p.fd >= 0) ::close(p.fd);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  if (WIFEXITED(status)) run.status = WEXITSTATUS(status);
  if (killed) run.err += "\n[killed after 60 seconds]";
  return run;
}

}  // namespace varnock::testing
