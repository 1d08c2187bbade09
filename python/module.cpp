// The varnock Python module: record objects created by name and used late
// bound, as an automation client uses them, over the object host.
#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include "containers.h"
#include "errors.h"
#include "record_type.h"
#include "values.h"
#include "varnock/event_log.h"
#include "varnock/host.h"
#include "varnock/type_library.h"

namespace py = pybind11;
using namespace varnock::python;

PYBIND11_MODULE(varnock, m) {
  m.doc() =
      "Varnock record objects for Python.\n\n"
      "    user = varnock.CreateObject(\"Varnock.User\")\n"
      "    user.Username = \"jdoe\"\n"
      "    user.SetDataProperty(\"Lastname\", None)   # refused: False\n"
      "    user.GetLastErrorMessage()                # the reason\n";

  defineErrors(m);
  defineValues(m);
  defineRecordType(m);
  defineContainers(m);

  m.def(
      "CreateObject",
      [](py::object name) { return wrapRecord(varnock::CreateObject(textOf(name))); },
      py::arg("name"),
      "A new record object, named by ProgID (\"Varnock.User\") or class identifier "
      "(\"{8EC93EA5-...}\"), in any case. An unknown name raises AutomationError 429.");

  m.def(
      "members",
      [](py::object className) {
        py::list described;
        for (const varnock::MemberDescription& d : varnock::members(textOf(className))) {
          described.append(py::make_tuple(d.name, d.dispatchId, d.kind, d.argumentNames));
        }
        return described;
      },
      py::arg("class_name"),
      "The interface of a class (\"User\" or \"Varnock.User\") in order: tuples of name, "
      "dispatch identifier, kind (\"method\", \"propget\" or \"propput\") and argument names.");

  m.def(
      "set_event_log", [](py::object setting) { varnock::setEventLog(textOf(setting)); },
      py::arg("setting"),
      "Where event log entries go: \"syslog\", \"journal\", \"file:PATH\" (JSON Lines) or "
      "\"stderr\"; for the whole process, as VARNOCK_EVENT_LOG chooses at start.");

  m.def(
      "idl", [] { return varnock::typeLibraryText(); },
      "The type library's description: classes, interfaces, dispatch identifiers, arguments.");
}
