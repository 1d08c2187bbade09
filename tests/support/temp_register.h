// Test hook: a new SQLite register in a temporary folder, removed afterwards,
// with a way to put rows in with plain SQL.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <string>

#include "client/client.h"
#include "varnock/register.h"

namespace varnock::testing {

class TempRegister {
 public:
  TempRegister() {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "varnock-register-XXXXXX").string();
    folder_ = ::mkdtemp(pattern.data());
    path_ = folder_ / "register.db";
    dsn_ = createRegister(path_.string());
  }
  ~TempRegister() { std::filesystem::remove_all(folder_); }
  TempRegister(const TempRegister&) = delete;
  TempRegister& operator=(const TempRegister&) = delete;

  const std::string& dsn() const { return dsn_; }
  const std::filesystem::path& path() const { return path_; }
  const std::filesystem::path& folder() const { return folder_; }

  // Runs statements through the client, as a separate caller would.
  void run(std::initializer_list<std::string_view> statements) const {
    auto connection = client::open(dsn_);
    for (const std::string_view statement : statements)
      connection->execute(statement);
    connection->close();
  }

 private:
  std::filesystem::path folder_;
  std::filesystem::path path_;
  std::string dsn_;
};

}  // namespace varnock::testing
