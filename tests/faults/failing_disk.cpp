// SPDX-License-Identifier: MIT
#include "faults/failing_disk.h"

#include <sqlite3.h>

#include <random>
#include <sstream>
#include <stdexcept>

namespace varnock::testing {

namespace {

struct DiskState {
  bool armed = false;
  FaultPlan plan;
  std::mt19937_64 random;
  std::uint64_t eligible = 0;  // calls of the plan's kinds since arming
  unsigned failingRun = 0;     // calls still to fail in the current burst
  IoCounts counts;
};

DiskState& disk() {
  static DiskState state;
  return state;
}

bool chance(double probability) {
  return probability > 0 && std::bernoulli_distribution(probability)(disk().random);
}

// Counts the call and tells whether it fails.
bool failsNow(IoCall call) {
  DiskState& d = disk();
  if (!d.armed) return false;
  switch (call) {
    case kWrite:
      ++d.counts.writes;
      break;
    case kSync:
      ++d.counts.syncs;
      break;
    default:
      ++d.counts.truncates;
      break;
  }
  if ((d.plan.calls & call) == 0) return false;
  ++d.eligible;
  bool fails = false;
  if (d.failingRun > 0) {
    --d.failingRun;
    fails = true;
  } else if (d.plan.failAt != 0 ? d.eligible == d.plan.failAt : chance(d.plan.probability)) {
    d.failingRun = d.plan.burst > 0 ? d.plan.burst - 1 : 0;
    fails = true;
  }
  if (fails) ++d.counts.failed;
  return fails;
}

// A file of the failing VFS: our methods, then the real file right after.
struct FailingFile {
  sqlite3_file base;
  sqlite3_file* real;
};

sqlite3_file* realOf(sqlite3_file* file) {
  return reinterpret_cast<FailingFile*>(file)->real;
}
const sqlite3_io_methods& realMethods(sqlite3_file* file) {
  return *realOf(file)->pMethods;
}

int fileClose(sqlite3_file* f) {
  return realMethods(f).xClose(realOf(f));
}
int fileRead(sqlite3_file* f, void* buffer, int amount, sqlite3_int64 offset) {
  return realMethods(f).xRead(realOf(f), buffer, amount, offset);
}
int fileWrite(sqlite3_file* f, const void* buffer, int amount, sqlite3_int64 offset) {
  if (failsNow(kWrite)) {
    // A torn write: part of the data reaches the file before the error.
    if (amount > 1 && chance(disk().plan.tornShare)) {
      ++disk().counts.torn;
      realMethods(f).xWrite(realOf(f), buffer, amount / 2, offset);
    }
    return SQLITE_IOERR_WRITE;
  }
  return realMethods(f).xWrite(realOf(f), buffer, amount, offset);
}
int fileTruncate(sqlite3_file* f, sqlite3_int64 size) {
  if (failsNow(kTruncate)) return SQLITE_IOERR_TRUNCATE;
  return realMethods(f).xTruncate(realOf(f), size);
}
int fileSync(sqlite3_file* f, int flags) {
  if (failsNow(kSync)) return SQLITE_IOERR_FSYNC;
  return realMethods(f).xSync(realOf(f), flags);
}
int fileSize(sqlite3_file* f, sqlite3_int64* size) {
  return realMethods(f).xFileSize(realOf(f), size);
}
int fileLock(sqlite3_file* f, int level) {
  return realMethods(f).xLock(realOf(f), level);
}
int fileUnlock(sqlite3_file* f, int level) {
  return realMethods(f).xUnlock(realOf(f), level);
}
int fileCheckReservedLock(sqlite3_file* f, int* reserved) {
  return realMethods(f).xCheckReservedLock(realOf(f), reserved);
}
int fileControl(sqlite3_file* f, int op, void* argument) {
  return realMethods(f).xFileControl(realOf(f), op, argument);
}
int fileSectorSize(sqlite3_file* f) {
  return realMethods(f).xSectorSize(realOf(f));
}
int fileDeviceCharacteristics(sqlite3_file* f) {
  return realMethods(f).xDeviceCharacteristics(realOf(f));
}
int fileShmMap(sqlite3_file* f, int region, int size, int extend, void volatile** memory) {
  if (realMethods(f).iVersion < 2) return SQLITE_IOERR_SHMMAP;
  return realMethods(f).xShmMap(realOf(f), region, size, extend, memory);
}
int fileShmLock(sqlite3_file* f, int offset, int n, int flags) {
  if (realMethods(f).iVersion < 2) return SQLITE_IOERR_SHMLOCK;
  return realMethods(f).xShmLock(realOf(f), offset, n, flags);
}
void fileShmBarrier(sqlite3_file* f) {
  if (realMethods(f).iVersion >= 2) realMethods(f).xShmBarrier(realOf(f));
}
int fileShmUnmap(sqlite3_file* f, int deleteFlag) {
  if (realMethods(f).iVersion < 2) return SQLITE_OK;
  return realMethods(f).xShmUnmap(realOf(f), deleteFlag);
}
int fileFetch(sqlite3_file* f, sqlite3_int64 offset, int amount, void** pointer) {
  if (realMethods(f).iVersion < 3) {
    *pointer = nullptr;
    return SQLITE_OK;
  }
  return realMethods(f).xFetch(realOf(f), offset, amount, pointer);
}
int fileUnfetch(sqlite3_file* f, sqlite3_int64 offset, void* pointer) {
  if (realMethods(f).iVersion < 3) return SQLITE_OK;
  return realMethods(f).xUnfetch(realOf(f), offset, pointer);
}

const sqlite3_io_methods kFileMethods = {
    3,
    fileClose,
    fileRead,
    fileWrite,
    fileTruncate,
    fileSync,
    fileSize,
    fileLock,
    fileUnlock,
    fileCheckReservedLock,
    fileControl,
    fileSectorSize,
    fileDeviceCharacteristics,
    fileShmMap,
    fileShmLock,
    fileShmBarrier,
    fileShmUnmap,
    fileFetch,
    fileUnfetch,
};

sqlite3_vfs* realVfs(sqlite3_vfs* vfs) {
  return static_cast<sqlite3_vfs*>(vfs->pAppData);
}

int vfsOpen(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  auto* failing = reinterpret_cast<FailingFile*>(file);
  failing->base.pMethods = nullptr;
  failing->real = reinterpret_cast<sqlite3_file*>(failing + 1);
  failing->real->pMethods = nullptr;
  const int opened = realVfs(vfs)->xOpen(realVfs(vfs), name, failing->real, flags, outFlags);
  // SQLite closes a file whose methods are set, even after a failed open.
  if (failing->real->pMethods != nullptr) failing->base.pMethods = &kFileMethods;
  return opened;
}
int vfsDelete(sqlite3_vfs* vfs, const char* name, int syncDirectory) {
  return realVfs(vfs)->xDelete(realVfs(vfs), name, syncDirectory);
}
int vfsAccess(sqlite3_vfs* vfs, const char* name, int flags, int* result) {
  return realVfs(vfs)->xAccess(realVfs(vfs), name, flags, result);
}
int vfsFullPathname(sqlite3_vfs* vfs, const char* name, int size, char* out) {
  return realVfs(vfs)->xFullPathname(realVfs(vfs), name, size, out);
}
void* vfsDlOpen(sqlite3_vfs* vfs, const char* name) {
  return realVfs(vfs)->xDlOpen(realVfs(vfs), name);
}
void vfsDlError(sqlite3_vfs* vfs, int size, char* message) {
  realVfs(vfs)->xDlError(realVfs(vfs), size, message);
}
void (*vfsDlSym(sqlite3_vfs* vfs, void* library, const char* symbol))(void) {
  return realVfs(vfs)->xDlSym(realVfs(vfs), library, symbol);
}
void vfsDlClose(sqlite3_vfs* vfs, void* library) {
  realVfs(vfs)->xDlClose(realVfs(vfs), library);
}
int vfsRandomness(sqlite3_vfs* vfs, int size, char* out) {
  return realVfs(vfs)->xRandomness(realVfs(vfs), size, out);
}
int vfsSleep(sqlite3_vfs* vfs, int microseconds) {
  return realVfs(vfs)->xSleep(realVfs(vfs), microseconds);
}
int vfsCurrentTime(sqlite3_vfs* vfs, double* now) {
  return realVfs(vfs)->xCurrentTime(realVfs(vfs), now);
}
int vfsGetLastError(sqlite3_vfs* vfs, int size, char* out) {
  return realVfs(vfs)->xGetLastError(realVfs(vfs), size, out);
}
int vfsCurrentTimeInt64(sqlite3_vfs* vfs, sqlite3_int64* now) {
  return realVfs(vfs)->xCurrentTimeInt64(realVfs(vfs), now);
}
int vfsSetSystemCall(sqlite3_vfs* vfs, const char* name, sqlite3_syscall_ptr call) {
  return realVfs(vfs)->xSetSystemCall(realVfs(vfs), name, call);
}
sqlite3_syscall_ptr vfsGetSystemCall(sqlite3_vfs* vfs, const char* name) {
  return realVfs(vfs)->xGetSystemCall(realVfs(vfs), name);
}
const char* vfsNextSystemCall(sqlite3_vfs* vfs, const char* name) {
  return realVfs(vfs)->xNextSystemCall(realVfs(vfs), name);
}

}  // namespace

void FailingDisk::install() {
  static sqlite3_vfs failing = [] {
    sqlite3_vfs* real = sqlite3_vfs_find(nullptr);
    if (real == nullptr) throw std::runtime_error("SQLite has no default VFS");
    sqlite3_vfs v{};
    v.iVersion = real->iVersion < 3 ? real->iVersion : 3;
    v.szOsFile = static_cast<int>(sizeof(FailingFile)) + real->szOsFile;
    v.mxPathname = real->mxPathname;
    v.zName = "failing-disk";
    v.pAppData = real;
    v.xOpen = vfsOpen;
    v.xDelete = vfsDelete;
    v.xAccess = vfsAccess;
    v.xFullPathname = vfsFullPathname;
    v.xDlOpen = vfsDlOpen;
    v.xDlError = vfsDlError;
    v.xDlSym = vfsDlSym;
    v.xDlClose = vfsDlClose;
    v.xRandomness = vfsRandomness;
    v.xSleep = vfsSleep;
    v.xCurrentTime = vfsCurrentTime;
    v.xGetLastError = vfsGetLastError;
    v.xCurrentTimeInt64 = vfsCurrentTimeInt64;
    v.xSetSystemCall = vfsSetSystemCall;
    v.xGetSystemCall = vfsGetSystemCall;
    v.xNextSystemCall = vfsNextSystemCall;
    return v;
  }();
  if (sqlite3_vfs_register(&failing, 1) != SQLITE_OK) {
    throw std::runtime_error("the failing VFS cannot be registered");
  }
}

void FailingDisk::arm(const FaultPlan& plan) {
  DiskState& d = disk();
  d.plan = plan;
  d.random.seed(plan.seed);
  d.eligible = 0;
  d.failingRun = 0;
  d.counts = IoCounts{};
  d.armed = true;
}

void FailingDisk::disarm() {
  disk().armed = false;
}

IoCounts FailingDisk::counts() {
  return disk().counts;
}

std::string FailingDisk::describe(const FaultPlan& plan) {
  std::ostringstream text;
  const char* separator = "";
  for (const auto& [bit, name] :
       {std::pair{kWrite, "write"}, std::pair{kSync, "sync"}, std::pair{kTruncate, "truncate"}}) {
    if ((plan.calls & bit) != 0) {
      text << separator << name;
      separator = "/";
    }
  }
  if (plan.failAt != 0) {
    text << " call " << plan.failAt;
  } else {
    text << " p=" << plan.probability;
  }
  text << " torn=" << plan.tornShare << " burst=" << plan.burst;
  return text.str();
}

}  // namespace varnock::testing
