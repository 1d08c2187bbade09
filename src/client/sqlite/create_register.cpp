#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>

#include "automation/text.h"
#include "client/client.h"
#include "client/sqlite/schema_text.h"
#include "client/sqlite/sqlite_errors.h"
#include "client/sqlite/sqlite_handles.h"
#include "varnock/automation_error.h"
#include "varnock/register.h"

namespace varnock {

namespace {

using client::sqlite::fail;

// Takes the name with an exclusive create, so that an existing file, or one
// that another process makes at the same moment, is never opened for writing.
void claimNewFile(const std::string& path) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (fd >= 0) {
    ::close(fd);
    return;
  }
  if (errno == EEXIST) {
    fail(client::kCannotOpen, "A file already exists at " + path +
                                  "; a new register is never written over an existing file.");
  }
  fail(client::kCannotOpen,
       "The register file " + path + " cannot be created: " + std::strerror(errno));
}

// Removes what a failed creation left behind: the file and SQLite's companions.
void removeRegisterFiles(const std::string& path) noexcept {
  std::error_code ignored;
  for (const char* suffix : {"", "-wal", "-shm", "-journal"})
    std::filesystem::remove(path + suffix, ignored);
}

void writeSchema(const std::string& path) {
  sqlite3* raw = nullptr;
  const int opened = sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READWRITE, nullptr);
  const client::sqlite::DatabaseHandle db(raw);
  if (opened != SQLITE_OK) {
    fail(client::kCannotOpen, db ? sqlite3_errmsg(db.get()) : sqlite3_errstr(opened));
  }
  const std::string schema(client::sqlite::registerSchemaSql());
  if (sqlite3_exec(db.get(), schema.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
    fail(client::kCommandFailed, sqlite3_errmsg(db.get()));
  }
}

// A Data Source value that reads back as the path: quoted when the path holds
// what would end or trim it.
std::string dataSourceValue(const std::string& path) {
  const bool plain = path.find(';') == std::string::npos && path.front() != '"' &&
                     path.front() != '\'' && trimBlanks(path).size() == path.size();
  if (plain) return path;
  std::string value = "\"";
  for (const char c : path) {
    value.push_back(c);
    if (c == '"') value.push_back('"');
  }
  return value + "\"";
}

}  // namespace

std::string createRegister(const std::string& path) {
  if (path.empty()) fail(client::kCannotOpen, "A register needs the path of its file.");
  claimNewFile(path);
  try {
    writeSchema(path);
  } catch (const AutomationError&) {
    removeRegisterFiles(path);
    throw;
  }
  return "Provider=SQLite;Data Source=" + dataSourceValue(path);
}

}  // namespace varnock
