// SPDX-License-Identifier: MIT
// How failures cross into Python: every C++ exception becomes a
// varnock.AutomationError carrying number, description and source, so a
// script handles one exception type whatever went wrong below it.
#pragma once

#include <pybind11/pybind11.h>

#include <cstdint>
#include <string>

#include "varnock/automation_error.h"

namespace varnock::python {

namespace py = pybind11;

// Numbers of the failures that arise in the binding itself.
inline constexpr std::int32_t kOutOfMemory = 7;
inline constexpr std::int32_t kInternalError = 51;
inline constexpr std::int32_t kNotSupported = 438;
// A Python exception raised by a caller's own object (a mapping) while the
// component was using it.
inline constexpr std::int32_t kExceptionOccurred = static_cast<std::int32_t>(0x80020009u);

// The source of failures that a caller's Python code raised.
inline constexpr const char* kPythonSource = "Python";

// Defines varnock.AutomationError (and its attribute-lookup variant) in `m`
// and makes every C++ exception of the module's functions one of them.
void defineErrors(py::module_& m);

// Sets the Python error for an AutomationError.
void raiseAutomationError(const AutomationError& error);
// The same, as an AttributeError too, for a name that a record lacks; so
// hasattr() and getattr() with a default behave as Python code expects.
void raiseUnknownAttribute(const AutomationError& error);

// Sets the Python error for the exception being handled; for catch (...)
// blocks of functions that CPython calls directly.
void raiseCurrentException() noexcept;

// The AutomationError that a Python exception (the one `error` holds) stands
// for: an AutomationError keeps its fields, anything else becomes
// kExceptionOccurred with the exception's type and text as description.
AutomationError automationErrorFrom(py::error_already_set& error);

}  // namespace varnock::python
