// SPDX-License-Identifier: MIT
// Calls on a record run without the interpreter lock while they work on the
// database, so other Python threads run meanwhile. A record (a C++ object
// shared by every wrapper of it) is then guarded by a lock of its own, taken
// by each method call and property access, so that two Python threads using
// one record object take turns as they did under the interpreter lock. The
// locks are striped by the record's address: a collection of 100,000
// records holds no lock of its own.
//
// Nothing ever waits for a record's lock while holding the interpreter lock.
// The one way to hold two records' locks is Python code that a call runs (a
// mapping given to SetDictionary, or the __del__ of one held as a value that
// the call replaces) using another record: two threads whose mappings each
// use the other's record, or a record sharing its stripe, would wait for
// each other.
#pragma once

#include <functional>
#include <mutex>

#include "varnock/record.h"

namespace varnock::python {

// Holds the record's lock; acquired with the interpreter lock held, which is
// let go only while it has to wait.
class RecordTurn {
 public:
  explicit RecordTurn(const Record& record);
  RecordTurn(const RecordTurn&) = delete;
  RecordTurn& operator=(const RecordTurn&) = delete;

 private:
  std::unique_lock<std::recursive_mutex> lock_;
};

// Runs `work` with the record's lock held and the interpreter lock let go;
// called with the interpreter lock held, and returns with it held again.
void runWithoutInterpreterLock(const Record& record, const std::function<void()>& work);

}  // namespace varnock::python
