// SPDX-License-Identifier: MIT
#include "record_locks.h"

#include <pybind11/pybind11.h>

#include <array>
#include <cstdint>

namespace varnock::python {

namespace {

namespace py = pybind11;

// Recursive: a mapping handed to SetDictionary is read with the record's lock
// held, and may use the record itself (or another of the same stripe).
// A prime number of stripes, so that records allocated at regular strides
// spread over all of them.
constexpr std::size_t kStripes = 251;

std::recursive_mutex& lockOf(const Record& record) {
  static std::array<std::recursive_mutex, kStripes> stripes;
  const auto address = reinterpret_cast<std::uintptr_t>(&record);
  return stripes[(address >> 4) % kStripes];
}

}  // namespace

RecordTurn::RecordTurn(const Record& record) : lock_(lockOf(record), std::try_to_lock) {
  if (lock_.owns_lock()) return;
  const py::gil_scoped_release waiting;
  lock_.lock();
}

void runWithoutInterpreterLock(const Record& record, const std::function<void()>& work) {
  const py::gil_scoped_release working;
  // The record's lock goes before the interpreter lock is taken back.
  const std::lock_guard turn(lockOf(record));
  work();
}

}  // namespace varnock::python
