// SPDX-License-Identifier: MIT
// Any Python mapping seen by the component as a KeyedContainer, so that
// SetDictionary takes a plain dict as it takes a varnock.Dictionary. The
// container calls back into the mapping; whatever the mapping raises becomes
// an AutomationError there, which SetDictionary traps like any run-time error.
#pragma once

#include <pybind11/pybind11.h>

#include <memory>

#include "varnock/dictionary.h"

namespace varnock::python {

namespace py = pybind11;

// True for a collections.abc.Mapping, or anything with keys() and
// __getitem__ as dict.update() accepts it.
bool isMapping(py::handle value);

std::shared_ptr<KeyedContainer> wrapMapping(py::handle mapping);

// The mapping behind an object made by wrapMapping, or an empty handle.
py::handle mappingOf(const Object& object);

}  // namespace varnock::python
