// SPDX-License-Identifier: MIT
#include "errors.h"

#include <pybind11/eval.h>

#include <new>
#include <string_view>

#include "values.h"

namespace varnock::python {

namespace {

// Owned for the life of the process: the classes outlive every module object
// that could raise them, and are never released at interpreter exit.
PyObject* automationErrorClass = nullptr;
PyObject* unknownMemberClass = nullptr;

constexpr const char* kClassesSource = R"py(
class AutomationError(Exception):
    """A failure reported by Varnock.

    number       the error number, a signed 32-bit integer; numbers of the
                 0x8xxxxxxx kind are negative (0x80020006 is -2147352570)
    description  what went wrong
    source       the part that raised it ("Varnock", "Event Log Component")
    """

    def __init__(self, number=0, description="", source=""):
        super().__init__(number, description, source)
        self.number = number
        self.description = description
        self.source = source

    def __str__(self):
        number = self.number
        if isinstance(number, int) and number < 0:
            number = "0x%08X" % (number & 0xFFFFFFFF)
        where = " from %s" % self.source if self.source else ""
        return "%s (error %s%s)" % (self.description, number, where)


class UnknownMemberError(AutomationError, AttributeError):
    """A record object has no member of that name (also an AttributeError)."""
)py";

void raiseAs(PyObject* cls, const AutomationError& error) {
  PyObject* description = newText(error.description());
  PyObject* source = newText(error.source());
  PyObject* number = PyLong_FromLong(error.number());
  if (description != nullptr && source != nullptr && number != nullptr) {
    if (PyObject* instance =
            PyObject_CallFunctionObjArgs(cls, number, description, source, nullptr)) {
      PyErr_SetObject(cls, instance);
      Py_DECREF(instance);
    }
  }
  Py_XDECREF(description);
  Py_XDECREF(source);
  Py_XDECREF(number);
}

void translate(std::exception_ptr pointer) {
  if (!pointer) return;
  try {
    std::rethrow_exception(pointer);
  } catch (const py::error_already_set&) {
    throw;  // a Python exception already: pybind11 restores it as it is
  } catch (const py::cast_error&) {
    raiseCurrentException();
  } catch (const py::builtin_exception&) {
    throw;  // StopIteration and the like, meant for Python as they are
  } catch (...) {
    raiseCurrentException();
  }
}

}  // namespace

void defineErrors(py::module_& m) {
  py::dict scope;
  scope["__builtins__"] = py::module_::import("builtins");
  scope["__name__"] = "varnock";
  py::exec(kClassesSource, scope);
  automationErrorClass = py::object(scope["AutomationError"]).release().ptr();
  unknownMemberClass = py::object(scope["UnknownMemberError"]).release().ptr();
  m.attr("AutomationError") = py::handle(automationErrorClass);
  m.attr("UnknownMemberError") = py::handle(unknownMemberClass);
  py::register_exception_translator(translate);
}

void raiseAutomationError(const AutomationError& error) {
  raiseAs(automationErrorClass, error);
}

void raiseUnknownAttribute(const AutomationError& error) {
  raiseAs(unknownMemberClass, error);
}

void raiseCurrentException() noexcept {
  try {
    throw;
  } catch (const AutomationError& e) {
    raiseAutomationError(e);
  } catch (py::error_already_set& e) {
    e.restore();
  } catch (const py::cast_error& e) {
    raiseAutomationError(
        AutomationError(AutomationError::kTypeMismatch, e.what(), AutomationError::kRuntimeSource));
  } catch (const py::builtin_exception& e) {
    e.set_error();
  } catch (const std::bad_alloc&) {
    raiseAutomationError(
        AutomationError(kOutOfMemory, "Out of memory", AutomationError::kRuntimeSource));
  } catch (const std::exception& e) {
    raiseAutomationError(AutomationError(kInternalError, std::string("Internal error: ") + e.what(),
                                         AutomationError::kRuntimeSource));
  } catch (...) {
    raiseAutomationError(
        AutomationError(kInternalError, "Internal error", AutomationError::kRuntimeSource));
  }
}

AutomationError automationErrorFrom(py::error_already_set& error) {
  const py::handle value = error.value();
  const int isAutomationError = PyObject_IsInstance(value.ptr(), automationErrorClass);
  if (isAutomationError < 0) PyErr_Clear();
  if (isAutomationError == 1) {
    try {
      return AutomationError(py::cast<std::int32_t>(value.attr("number")),
                             py::str(value.attr("description")), py::str(value.attr("source")));
    } catch (py::error_already_set&) {
      PyErr_Clear();  // a damaged instance: described below like any other
    } catch (const py::cast_error&) {
    }
  }
  std::string description = Py_TYPE(value.ptr())->tp_name;
  if (PyObject* text = PyObject_Str(value.ptr())) {
    Py_ssize_t size = 0;
    if (const char* data = PyUnicode_AsUTF8AndSize(text, &size); data != nullptr && size > 0) {
      description.append(": ").append(data, static_cast<std::size_t>(size));
    }
    Py_DECREF(text);
  }
  PyErr_Clear();  // whatever str() itself raised
  return AutomationError(kExceptionOccurred, std::move(description), kPythonSource);
}

}  // namespace varnock::python
