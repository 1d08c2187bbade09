// SPDX-License-Identifier: MIT
// Test hook: the test program's own PostgreSQL server, made by
// tests/support/postgres_server.sh in a temporary folder on first use and
// stopped, its folder removed, when the program ends (or, should it die,
// by the script's watcher). One server serves every test of the program;
// tests share its database and empty what they use. Not thread-safe: tests
// of one program run one after the other.
//
//   VARNOCK_REQUIRE_POSTGRES();  // in SetUp: skips without PostgreSQL
//   auto out = PostgresServer::shared().psql("SELECT 1");
#pragma once

#include <stdlib.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "support/run_program.h"

#ifndef VARNOCK_POSTGRES_SERVER_SCRIPT
#error "VARNOCK_POSTGRES_SERVER_SCRIPT names tests/support/postgres_server.sh"
#endif

namespace varnock::testing {

// What a test connects with: TCP on 127.0.0.1, password authentication.
struct PostgresConnection {
  std::string host;
  std::string port;
  std::string database;
  std::string user;
  std::string password;
  std::filesystem::path socketDir;  // the server's unix socket is here too
  std::filesystem::path binDir;     // initdb, pg_ctl, postgres, psql
};

// What psql made of a script: with ON_ERROR_STOP, `ok` is false at the
// first error, whose message (without "ERROR:  ") is in `error`. Rows are
// printed unaligned, fields separated by '|', NULL as "NULL".
struct PsqlRun {
  bool ok = false;
  std::string out;
  std::string error;
};

class PostgresServer {
 public:
  enum class State { Running, Unavailable, Failed };

  static PostgresServer& shared() {
    static PostgresServer server;
    return server;
  }

  PostgresServer(const PostgresServer&) = delete;
  PostgresServer& operator=(const PostgresServer&) = delete;
  // Stops the server; never throws.
  ~PostgresServer() {
    if (!folder_.empty())
      runProgram(kScript, {"stop", folder_.string()}, std::filesystem::temp_directory_path());
  }

  State state() const { return state_; }
  // Why the server is not running; empty when it is.
  const std::string& problem() const { return problem_; }
  const PostgresConnection& connection() const { return connection_; }

  // Runs SQL text (one or more statements) as the test role.
  PsqlRun psql(std::string_view sql) const {
    const std::filesystem::path script = folder_ / "script.sql";
    std::ofstream(script, std::ios::binary) << sql;
    return psqlFile(script);
  }

  PsqlRun psqlFile(const std::filesystem::path& script) const {
    const ProgramRun run = runProgram(connection_.binDir / "psql",
                                      {"-X", "-q", "-A", "-t", "-v", "ON_ERROR_STOP=1", "-F", "|",
                                       "-P", "null=NULL", "-f", script.string()},
                                      folder_, environment());
    PsqlRun result{run.status == 0, run.out, ""};
    if (!result.ok) result.error = errorOf(run.err);
    return result;
  }

  // The variables psql and libpq read the connection from.
  EnvironmentChanges environment() const {
    return {{"PGHOST", connection_.host},
            {"PGPORT", connection_.port},
            {"PGDATABASE", connection_.database},
            {"PGUSER", connection_.user},
            {"PGPASSWORD", connection_.password},
            {"PGCONNECT_TIMEOUT", "10"},
            {"PGCLIENTENCODING", "UTF8"},
            {"PGOPTIONS", std::nullopt},
            {"PSQLRC", "/dev/null"}};
  }

 private:
  static constexpr const char* kScript = VARNOCK_POSTGRES_SERVER_SCRIPT;
  static constexpr int kUnavailableStatus = 3;  // the script's: programs missing

  PostgresServer() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "varnock-postgres-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
      fail("cannot make a temporary folder");
      return;
    }
    const std::filesystem::path folder = pattern;
    const ProgramRun run = runProgram(
        kScript, {"start", folder.string(), std::to_string(::getpid())}, folder.parent_path());
    if (run.status != 0) {
      std::filesystem::remove_all(folder);
      if (run.status == kUnavailableStatus) {
        state_ = State::Unavailable;
        problem_ = run.err;
      } else {
        fail("postgres_server.sh start failed (" + std::to_string(run.status) + "): " + run.err);
      }
      return;
    }
    folder_ = folder;
    const std::map<std::string, std::string> env = readEnvironmentFile(folder_ / "connection.env");
    const auto value = [&](const std::string& name) {
      const auto it = env.find(name);
      return it == env.end() ? std::string() : it->second;
    };
    connection_ = {value("PGHOST"),
                   value("PGPORT"),
                   value("PGDATABASE"),
                   value("PGUSER"),
                   value("PGPASSWORD"),
                   value("VARNOCK_POSTGRES_SOCKET_DIR"),
                   value("VARNOCK_POSTGRES_BIN")};
    if (connection_.port.empty() || connection_.binDir.empty())
      fail("connection.env lacks the server's port or programs");
  }

  void fail(std::string problem) {
    state_ = State::Failed;
    problem_ = std::move(problem);
  }

  static std::map<std::string, std::string> readEnvironmentFile(const std::filesystem::path& path) {
    std::map<std::string, std::string> values;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
      const std::size_t equals = line.find('=');
      if (equals != std::string::npos) values[line.substr(0, equals)] = line.substr(equals + 1);
    }
    return values;
  }

  // "psql:/path:3: ERROR:  message\nDETAIL: ..." is "message".
  static std::string errorOf(const std::string& err) {
    const std::size_t at = err.find("ERROR:  ");
    if (at == std::string::npos) return err.empty() ? "psql failed" : err;
    const std::size_t start = at + 8;
    return err.substr(start, err.find('\n', start) - start);
  }

  State state_ = State::Running;
  std::string problem_;
  std::filesystem::path folder_;
  PostgresConnection connection_;
};

// True when VARNOCK_REQUIRE_ALL_BACK_ENDS=1: a missing back end fails its
// tests instead of skipping them.
inline bool requireAllBackEnds() {
  const char* value = std::getenv("VARNOCK_REQUIRE_ALL_BACK_ENDS");
  return value != nullptr && std::string_view(value) == "1";
}

}  // namespace varnock::testing

// Starts the shared server if need be; skips the test when PostgreSQL is not
// installed (fails it under VARNOCK_REQUIRE_ALL_BACK_ENDS=1), fails it when
// the server would not start. Use in SetUp or a test body.
#define VARNOCK_REQUIRE_POSTGRES()                                                        \
  do {                                                                                    \
    const auto& varnockServer = ::varnock::testing::PostgresServer::shared();             \
    using varnockState = ::varnock::testing::PostgresServer::State;                       \
    if (varnockServer.state() == varnockState::Failed) FAIL() << varnockServer.problem(); \
    if (varnockServer.state() == varnockState::Unavailable) {                             \
      if (::varnock::testing::requireAllBackEnds())                                       \
        FAIL() << "VARNOCK_REQUIRE_ALL_BACK_ENDS=1, but " << varnockServer.problem();     \
      GTEST_SKIP() << varnockServer.problem();                                            \
    }                                                                                     \
  } while (false)
