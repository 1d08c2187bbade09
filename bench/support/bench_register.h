// Benchmark support: a register in a temporary folder, filled with plain SQL
// in one transaction, removed when the program ends.
#pragma once

#include <unistd.h>

#include <filesystem>
#include <string>
#include <vector>

#include "support/raw_sqlite.h"
#include "varnock/register.h"

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

}  // namespace varnock::bench
