// SPDX-License-Identifier: MIT
// varnock.Dictionary and varnock.Collection: Python faces of the component's
// own Dictionary and Collection, sharing the C++ object, so a dictionary from
// GetDictionary given back to SetDictionary is the very same dictionary.
#pragma once

#include <pybind11/pybind11.h>

namespace varnock::python {

namespace py = pybind11;

void defineContainers(py::module_& m);

}  // namespace varnock::python
