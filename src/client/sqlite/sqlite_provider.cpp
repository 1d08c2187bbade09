// SPDX-License-Identifier: MIT
#include "client/sqlite/sqlite_provider.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

#include "client/sqlite/sqlite_connection.h"
#include "client/sqlite/sqlite_errors.h"

namespace varnock::client::sqlite {

namespace {

// The database kind that register scripts are chosen by.
constexpr const char* kDatabaseKind = "SQLite";

std::string dataSourceOf(const ConnectionString& connectionString) {
  std::string path = connectionString.get("Data Source").value_or("");
  if (path.empty()) {
    fail(kCannotOpen,
         "The connection string names no Data Source; the SQLite provider needs the path of a "
         "register file.");
  }
  return path;
}

// Takes the name with an exclusive create, so that an existing file, or one
// that another process makes at the same moment, is never opened for writing.
void claimNewFile(const std::string& path) {
  // Owner-only: the register holds passwords. SQLite gives its companion
  // files (-wal, -shm) the database file's permissions.
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (fd >= 0) {
    ::close(fd);
    return;
  }
  if (errno == EEXIST) {
    fail(kCannotOpen, "A file already exists at " + path +
                          "; a new register is never written over an existing file.");
  }
  fail(kCannotOpen, "The register file " + path + " cannot be created: " + std::strerror(errno));
}

// Removes what a failed creation left behind: the file and SQLite's companions.
void removeDatabaseFiles(const std::string& path) noexcept {
  std::error_code ignored;
  for (const char* suffix : {"", "-wal", "-shm", "-journal"})
    std::filesystem::remove(path + suffix, ignored);
}

void runScript(const std::string& path, const std::string& script) {
  const DatabaseHandle db = openDatabase(path);
  if (sqlite3_exec(db.get(), script.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    fail(kCommandFailed, sqlite3_errmsg(db.get()));
  }
}

}  // namespace

Provider sqliteProvider() {
  Provider provider;
  provider.open = [](const ConnectionString& connectionString) {
    return std::unique_ptr<Session>(
        std::make_unique<SqliteConnection>(dataSourceOf(connectionString)));
  };
  provider.create = [](const ConnectionString& connectionString, const ScriptForKind& scriptFor) {
    const std::string path = dataSourceOf(connectionString);
    const std::string script = scriptFor(kDatabaseKind);
    claimNewFile(path);
    try {
      runScript(path, script);
    } catch (...) {
      removeDatabaseFiles(path);
      throw;
    }
  };
  return provider;
}

}  // namespace varnock::client::sqlite
