// SPDX-License-Identifier: MIT
// The mapping between Python values and Variants, both ways:
//   None <-> Null, varnock.Empty <-> Empty, bool <-> Boolean,
//   int -> Long when it fits 32 bits, otherwise Double; Integer and Long -> int,
//   float <-> Double, str <-> String, decimal.Decimal <-> Currency,
//   datetime.datetime and datetime.date -> Date -> datetime.datetime,
//   record objects, varnock.Dictionary and varnock.Collection <-> Object,
//   any other mapping -> Object (a KeyedContainer over it, given back as is),
//   a null object reference -> None.
// Values that do not map raise AutomationError: kDispatchTypeMismatch or
// kDispatchOverflow going in, 13 or 6 coming out. Call with the GIL held.
#pragma once

#include <pybind11/pybind11.h>

#include <string>
#include <string_view>

#include "varnock/variant.h"

namespace varnock::python {

namespace py = pybind11;

// The holder that varnock.ByRef makes: where a by-reference argument's final
// value is written back.
struct ByRef {
  py::object value;
};

// Imports what the conversions need and defines varnock.Empty and varnock.ByRef.
void defineValues(py::module_& m);

Variant toVariant(py::handle value);
py::object fromVariant(const Variant& value);

// The holder if `value` is a varnock.ByRef, else nullptr.
ByRef* asByRef(py::handle value);

// A new str of UTF-8 text; bytes that are not UTF-8 come through as
// surrogate escapes (and go back unchanged), so no text fails to cross.
PyObject* newText(std::string_view text);

// The text of a value given where the component expects a name: converted as
// a string argument is ("Varnock.User", 5 -> "5"; Null raises 94).
std::string textOf(py::handle value);

}  // namespace varnock::python
