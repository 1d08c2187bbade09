// SPDX-License-Identifier: MIT
// What help() and inspect show of a record method: its docstring (call
// form, result, what it does, which arguments come back changed) and its
// signature, both from the member's description.
#pragma once

#include <pybind11/pybind11.h>

#include <string>

#include "varnock/host.h"

namespace varnock::python {

namespace py = pybind11;

// "GetEveryUser(strWhereClause='', ...) -> Collection" and the summary.
std::string methodDoc(const MemberDescription& member);

// An inspect.Signature: every argument positional or by keyword, the
// optional ones with their defaults. Values are converted late, so no
// annotation would be true of every call; the docstring names the types.
py::object methodSignature(const MemberDescription& member);

}  // namespace varnock::python
