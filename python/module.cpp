// SPDX-License-Identifier: MIT
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
#include "varnock/register.h"
#include "varnock/sql_trace.h"
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

  m.attr("__version__") = VARNOCK_VERSION;

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
        const auto argumentNames = [](const varnock::MemberDescription& d) {
          std::vector<std::string> names;
          for (const varnock::ArgumentDescription& a : d.arguments)
            names.push_back(a.name);
          return names;
        };
        py::list described;
        for (const varnock::MemberDescription& d : varnock::members(textOf(className))) {
          described.append(py::make_tuple(d.name, d.dispatchId, std::string(kindName(d.kind)),
                                          argumentNames(d)));
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

  // Paths may be given as str or any os.PathLike.
  const auto pathText = [](py::object path) {
    return py::module_::import("os").attr("fspath")(path).cast<std::string>();
  };

  m.def(
      "create_register",
      [pathText](py::object path) {
        const std::string file = pathText(path);
        const py::gil_scoped_release writing;  // other threads run while the file is made
        return varnock::createRegister(file);
      },
      py::arg("path"),
      "Creates a new, empty SQLite register at path (an existing file is never overwritten: "
      "AutomationError) and returns its connection string, for the objects' DSN.");

  m.def(
      "set_sql_trace",
      [pathText](py::object path) {
        varnock::setSqlTrace(path.is_none() ? std::string() : pathText(path));
      },
      py::arg("path"),
      "Appends one JSON Lines entry per statement sent to the database to path (time, sql, ok, "
      "error, elapsed_us); None switches the trace off.");

  m.def(
      "idl", [] { return varnock::typeLibraryText(); },
      "The type library's description: classes, interfaces, dispatch identifiers, arguments.");
}
