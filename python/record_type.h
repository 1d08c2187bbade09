// SPDX-License-Identifier: MIT
// Record objects as Python objects: properties are attributes, methods are
// callables taking positional and keyword arguments, every access a late-bound
// Invoke. Names (members and keywords) match without regard to case; their
// identifiers come from GetIDsOfNames once per class and spelling, then from a
// cache, so a call in a loop costs one hash look-up before Invoke.
#pragma once

#include <pybind11/pybind11.h>

#include <memory>

#include "varnock/record.h"

namespace varnock::python {

namespace py = pybind11;

// Defines varnock.Record, the type of every record object.
void defineRecordType(py::module_& m);

// A Python object for a record; a new wrapper each time, but wrappers of one
// record compare equal and hash alike.
py::object wrapRecord(std::shared_ptr<Record> record);

// The record behind a varnock.Record object, or nullptr for anything else.
std::shared_ptr<Record> recordOf(py::handle value);

}  // namespace varnock::python
