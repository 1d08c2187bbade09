// SPDX-License-Identifier: MIT
// Test hook: runs a program in a folder with a chosen environment and
// collects its exit status, standard output and standard error.
#pragma once

#include <stdio.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
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
  const std::string folders = path == nullptr ? "" : path;
  for (std::size_t start = 0; start <= folders.size();) {
    const std::size_t end = std::min(folders.find(':', start), folders.size());
    const std::filesystem::path candidate =
        std::filesystem::path(folders.substr(start, end - start)) / program;
    if (::access(candidate.c_str(), X_OK) == 0) return candidate;
    start = end + 1;
  }
  return std::nullopt;
}

// The whole of a temporary file, which is then closed.
inline std::string drained(FILE* file) {
  std::string text;
  ::rewind(file);
  char buffer[4096];
  for (std::size_t n; (n = ::fread(buffer, 1, sizeof buffer, file)) > 0;)
    text.append(buffer, n);
  ::fclose(file);
  return text;
}

// `input`, when given, is the program's standard input; otherwise it reads
// this process's.
inline ProgramRun runProgram(const std::filesystem::path& program,
                             const std::vector<std::string>& arguments,
                             const std::filesystem::path& folder,
                             const EnvironmentChanges& environment = {},
                             const std::optional<std::string>& input = std::nullopt) {
  FILE* out = ::tmpfile();
  FILE* err = ::tmpfile();
  FILE* in = input ? ::tmpfile() : nullptr;
  if (in != nullptr) {
    ::fwrite(input->data(), 1, input->size(), in);
    ::fflush(in);
    ::rewind(in);
  }
  if (out == nullptr || err == nullptr || (input && in == nullptr)) {
    for (FILE* file : {out, err, in}) {
      if (file != nullptr) ::fclose(file);
    }
    return {};
  }
  const pid_t child = ::fork();
  if (child < 0) {
    ::fclose(out);
    ::fclose(err);
    if (in != nullptr) ::fclose(in);
    return {};
  }
  if (child == 0) {
    if (in != nullptr) ::dup2(::fileno(in), STDIN_FILENO);
    ::dup2(::fileno(out), STDOUT_FILENO);
    ::dup2(::fileno(err), STDERR_FILENO);
    if (::chdir(folder.c_str()) != 0) ::_exit(127);
    for (const auto& [name, value] : environment) {
      if (value) {
        ::setenv(name.c_str(), value->c_str(), 1);
      } else {
        ::unsetenv(name.c_str());
      }
    }
    std::vector<std::string> copies{program.string()};
    copies.insert(copies.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& a : copies)
      argv.push_back(a.data());
    argv.push_back(nullptr);
    // The alarm outlives exec: a program that hangs is ended, and fails its test.
    ::alarm(60);
    ::execv(argv[0], argv.data());
    ::_exit(127);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  if (in != nullptr) ::fclose(in);
  ProgramRun run;
  if (WIFEXITED(status)) run.status = WEXITSTATUS(status);
  run.out = drained(out);
  run.err = drained(err);
  if (WIFSIGNALED(status))
    run.err += "\n[ended by signal " + std::to_string(WTERMSIG(status)) + "]";
  return run;
}

}  // namespace varnock::testing
