// SPDX-License-Identifier: MIT
// Test hook: an SQLite VFS over the platform's default one that makes chosen
// or random writes, syncs and truncations fail with SQLite's I/O errors, as a
// failing or full disk would. Installed as the default VFS of the process, it
// sits under every register connection the library opens (the library and
// the tests share one libsqlite3), and passes everything through while it is
// disarmed.
#pragma once

#include <cstdint>
#include <string>

namespace varnock::testing {

// The file operations that can be made to fail, as bits.
enum IoCall : unsigned {
  kWrite = 1,     // fails with SQLITE_IOERR_WRITE
  kSync = 2,      // fails with SQLITE_IOERR_FSYNC
  kTruncate = 4,  // fails with SQLITE_IOERR_TRUNCATE
  kEveryIoCall = 7,
};

struct FaultPlan {
  unsigned calls = 0;        // the IoCall bits that may fail; 0 counts only
  std::uint64_t failAt = 0;  // the n-th such call (from 1) fails; 0 for none
  double probability = 0;    // otherwise each such call fails with this chance
  std::uint64_t seed = 0;    // for the chances
  double tornShare = 0;      // share of failing writes that put their first half down first
  unsigned burst = 1;        // once one call fails, this many fail in a row
};

struct IoCounts {
  std::uint64_t writes = 0;
  std::uint64_t syncs = 0;
  std::uint64_t truncates = 0;
  std::uint64_t failed = 0;
  std::uint64_t torn = 0;

  std::uint64_t total() const { return writes + syncs + truncates; }
};

class FailingDisk {
 public:
  // Makes the failing VFS the process's default; again is harmless.
  static void install();
  // Starts counting from zero and failing as `plan` says.
  static void arm(const FaultPlan& plan);
  // Stops failing; the counts stay readable.
  static void disarm();
  static IoCounts counts();
  static std::string describe(const FaultPlan& plan);
};

// Disarms on every way out of a scope.
class ArmedDisk {
 public:
  explicit ArmedDisk(const FaultPlan& plan) { FailingDisk::arm(plan); }
  ~ArmedDisk() { FailingDisk::disarm(); }
  ArmedDisk(const ArmedDisk&) = delete;
  ArmedDisk& operator=(const ArmedDisk&) = delete;
};

}  // namespace varnock::testing
