// SPDX-License-Identifier: MIT
// Benchmark support: a register in a temporary folder, filled with plain SQL
// in one transaction, removed when the program ends.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/raw_sqlite.h"
#include "varnock/register.h"
#include "varnock/user.h"

namespace varnock::bench {

class BenchRegister {
 public:
  explicit BenchRegister(const std::string& name) {
    folder_ = std::filesystem::temp_directory_path() /
              ("varnock-bench-" + name + "-" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder_);
    path_ = (folder_ / "register.db").string();
    dsn_ = createRegister(path_);
  }
  ~BenchRegister() { std::filesystem::remove_all(folder_); }
  BenchRegister(const BenchRegister&) = delete;
  BenchRegister& operator=(const BenchRegister&) = delete;

  void fill(const std::vector<std::string>& statements) const { rawExecute(path_, statements); }
  const std::string& path() const { return path_; }
  const std::string& dsn() const { return dsn_; }

 private:
  std::filesystem::path folder_;
  std::string path_;
  std::string dsn_;
};

// An INSERT of a complete User row named `name`, as plain SQL.
inline std::string userRow(const std::string& name) {
  return "INSERT INTO [User] VALUES ('" + name + "', 'web', 'First', 'Last', 'Norway', NULL, " +
         "'secret', '" + name +
         "@example.org', 'topic', 'bio', NULL, NULL, '2000-05-04 13:45:00', 1, NULL, 'approved', "
         "'10.0.0.1')";
}

// Every column of a User filled, as the writing benchmarks add one.
inline void fillUser(User& user, const std::string& dsn, const std::string& name) {
  user.put_DSN(dsn);
  user.put_Username(name);
  user.put_SiteType("web");
  user.put_Firstname("Jane");
  user.put_Lastname("Doe");
  user.put_Country("Norway");
  user.put_State("Oslo");
  user.put_Password("secret");
  user.put_Email("j@example.org");
  user.put_Pagetopic("topic");
  user.put_Bio("bio");
  user.put_Graphic("g.png");
  user.put_Link("https://example.org");
  user.put_DateCreated(Date::fromCivil({2000, 5, 4, 13, 45, 0}));
  user.put_Authorized(true);
  user.put_AuthorisationDate(Date::fromCivil({2001, 2, 3, 4, 5, 0}));
  user.put_AuthorisationMessage("approved");
  user.put_REMOTE_ADDR("10.0.0.1");
}

}  // namespace varnock::bench
