// SPDX-License-Identifier: MIT
#include "values.h"

// The datetime C API keeps its table in a per-file static: every use stays in
// this file.
#include <datetime.h>

#include <cmath>
#include <cstdint>
#include <limits>

#include "mapping_container.h"
#include "record_type.h"
#include "varnock/automation_error.h"
#include "varnock/collection.h"
#include "varnock/conversions.h"
#include "varnock/dictionary.h"
#include "varnock/host.h"
#include "varnock/record.h"

namespace varnock::python {

namespace {

// The marker type of varnock.Empty; its one instance is the only one there is.
struct EmptyValue {};

// Owned for the life of the process, like the classes of errors.cpp.
PyObject* emptyInstance = nullptr;
PyObject* decimalClass = nullptr;
PyTypeObject* byRefType = nullptr;

// The serial dates that datetime can represent: from 1 January of year 1 to
// the end of 31 December 9999 (before 1899 the whole part counts backwards).
double firstSerial = 0.0;
double lastSerial = 0.0;

[[noreturn]] void mismatch(py::handle value) {
  throw AutomationError(kDispatchTypeMismatch,
                        std::string("Type mismatch: a value of type ") +
                            Py_TYPE(value.ptr())->tp_name + " cannot be passed",
                        AutomationError::kRuntimeSource);
}

[[noreturn]] void outOfRange(py::handle value) {
  throw AutomationError(kDispatchOverflow,
                        std::string("Out of present range: a value of type ") +
                            Py_TYPE(value.ptr())->tp_name + " that does not fit",
                        AutomationError::kRuntimeSource);
}

Variant fromInteger(py::handle value) {
  int overflow = 0;
  const long long n = PyLong_AsLongLongAndOverflow(value.ptr(), &overflow);
  if (n == -1 && PyErr_Occurred() != nullptr) throw py::error_already_set();
  if (overflow == 0 && n >= std::numeric_limits<std::int32_t>::min() &&
      n <= std::numeric_limits<std::int32_t>::max()) {
    return Variant(static_cast<std::int32_t>(n));
  }
  const double d = PyLong_AsDouble(value.ptr());
  if (d == -1.0 && PyErr_Occurred() != nullptr) {
    PyErr_Clear();  // beyond the range of a double
    outOfRange(value);
  }
  return Variant(d);
}

Variant fromDateTime(py::handle value) {
  PyObject* p = value.ptr();
  CivilDateTime civil{PyDateTime_GET_YEAR(p), PyDateTime_GET_MONTH(p), PyDateTime_GET_DAY(p)};
  int microseconds = 0;
  if (PyDateTime_Check(p)) {
    civil.hour = PyDateTime_DATE_GET_HOUR(p);
    civil.minute = PyDateTime_DATE_GET_MINUTE(p);
    civil.second = PyDateTime_DATE_GET_SECOND(p);
    microseconds = PyDateTime_DATE_GET_MICROSECOND(p);
  }
  // The wall-clock fields are taken as they stand: a Date has no time zone.
  Date date = Date::fromCivil(civil);
  // Before day 0 a later time is a larger fraction below the whole day.
  const double fraction = microseconds / 86400e6;
  const bool beforeDayZero = date.serial < 0;
  const double dayEnd = beforeDayZero ? std::trunc(date.serial) - 1 : std::trunc(date.serial) + 1;
  date.serial += beforeDayZero ? -fraction : fraction;
  // A double near the calendar's end resolves about 40 microseconds: the
  // last microseconds of a day must not round into the next one.
  if (beforeDayZero ? date.serial <= dayEnd : date.serial >= dayEnd) {
    date.serial = std::nextafter(dayEnd, 0.0);
  }
  return Variant(date);
}

// Decimal -> Currency, exactly and whatever the decimal context: from the
// digits, rounding half to even at the fourth decimal place.
Variant fromDecimal(py::handle value) {
  const py::tuple parts = value.attr("as_tuple")();
  const py::object exponentObject = parts[2];
  if (!PyLong_Check(exponentObject.ptr())) {
    // 'F' is an infinity, 'n' and 'N' are not numbers.
    if (py::str(exponentObject).cast<std::string>() == "F") outOfRange(value);
    mismatch(value);
  }
  const bool negative = parts[0].cast<int>() != 0;
  const py::tuple digits = parts[1];
  const auto count = static_cast<long long>(digits.size());
  const long long exponent = exponentObject.cast<long long>();
  // Ten-thousandths are the digits times 10^shift.
  const long long shift = exponent + 4;
  // |value| >= 10^15 is at least 10^19 ten-thousandths: more than 63 bits.
  const long long adjusted = exponent + count - 1;
  bool allZero = true;
  for (const py::handle d : digits) {
    if (d.cast<int>() != 0) {
      allZero = false;
      break;
    }
  }
  if (allZero) return Variant(Currency{0});
  if (adjusted >= 15) outOfRange(value);
  const long long kept = count + shift;  // digits left of the decimal point
  std::uint64_t magnitude = 0;
  for (long long i = 0; i < kept && i < count; ++i) {
    magnitude = magnitude * 10 + digits[static_cast<std::size_t>(i)].cast<std::uint64_t>();
  }
  for (long long i = count; i < kept; ++i)
    magnitude *= 10;
  if (kept >= 0 && kept < count) {
    const int first = digits[static_cast<std::size_t>(kept)].cast<int>();
    bool rest = false;
    for (long long i = kept + 1; i < count && !rest; ++i) {
      rest = digits[static_cast<std::size_t>(i)].cast<int>() != 0;
    }
    if (first > 5 || (first == 5 && (rest || magnitude % 2 == 1))) ++magnitude;
  }
  const std::uint64_t limit =
      static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) + (negative ? 1 : 0);
  if (magnitude > limit) outOfRange(value);
  const std::int64_t tenThousandths =
      negative ? static_cast<std::int64_t>(0 - magnitude) : static_cast<std::int64_t>(magnitude);
  return Variant(Currency{tenThousandths});
}

py::object toDecimal(Currency amount) {
  const bool negative = amount.tenThousandths < 0;
  const std::uint64_t magnitude = negative ? 0 - static_cast<std::uint64_t>(amount.tenThousandths)
                                           : static_cast<std::uint64_t>(amount.tenThousandths);
  std::string fraction = std::to_string(magnitude % 10000);
  fraction.insert(0, 4 - fraction.size(), '0');
  const std::string text =
      (negative ? "-" : "") + std::to_string(magnitude / 10000) + "." + fraction;
  // Made from text, a Decimal is exact whatever the context's precision.
  return py::reinterpret_borrow<py::object>(decimalClass)(text);
}

py::object toDateTime(Date date) {
  if (!(date.serial > firstSerial && date.serial < lastSerial)) {
    throw AutomationError::runtime(AutomationError::kOverflow);
  }
  const CivilDateTime c = date.civil();
  if (c.year < 1 || c.year > 9999) throw AutomationError::runtime(AutomationError::kOverflow);
  PyObject* result =
      PyDateTime_FromDateAndTime(c.year, c.month, c.day, c.hour, c.minute, c.second, 0);
  if (result == nullptr) throw py::error_already_set();
  return py::reinterpret_steal<py::object>(result);
}

py::object fromObject(const std::shared_ptr<Object>& object) {
  if (!object) return py::none();
  if (auto record = std::dynamic_pointer_cast<Record>(object)) return wrapRecord(std::move(record));
  if (auto dictionary = std::dynamic_pointer_cast<Dictionary>(object)) {
    return py::cast(std::move(dictionary));
  }
  if (auto collection = std::dynamic_pointer_cast<Collection>(object)) {
    return py::cast(std::move(collection));
  }
  if (const py::handle mapping = mappingOf(*object)) {
    return py::reinterpret_borrow<py::object>(mapping);
  }
  throw AutomationError::runtime(AutomationError::kTypeMismatch);
}

}  // namespace

void defineValues(py::module_& m) {
  PyDateTime_IMPORT;
  if (PyDateTimeAPI == nullptr) throw py::error_already_set();
  decimalClass = py::object(py::module_::import("decimal").attr("Decimal")).release().ptr();
  firstSerial = Date::fromCivil({1, 1, 1}).serial - 1.0;
  lastSerial = Date::fromCivil({9999, 12, 31}).serial + 1.0;

  py::class_<EmptyValue>(m, "EmptyType", py::is_final(),
                         "The type of varnock.Empty, the value of an argument or column "
                         "that was never given one (distinct from None, which is Null).")
      .def("__repr__", [](const EmptyValue&) { return "Empty"; })
      .def("__bool__", [](const EmptyValue&) { return false; })
      // Copies and pickles come back as the one instance.
      .def("__reduce__", [](const EmptyValue&) { return "Empty"; });
  emptyInstance = py::cast(EmptyValue{}).release().ptr();
  m.attr("Empty") = py::handle(emptyInstance);

  py::class_<ByRef>(m, "ByRef", py::is_final(),
                    "A variable for an argument passed by reference: where the argument is "
                    "declared by reference, .value receives its final value after the call.")
      .def(py::init([](py::object value) { return ByRef{std::move(value)}; }),
           py::arg_v("value", py::handle(emptyInstance), "Empty"))
      .def_readwrite("value", &ByRef::value)
      .def("__repr__", [](const ByRef& self) {
        return "ByRef(" + py::repr(self.value).cast<std::string>() + ")";
      });
  byRefType = reinterpret_cast<PyTypeObject*>(py::type::of<ByRef>().ptr());
}

Variant toVariant(py::handle value) {
  PyObject* p = value.ptr();
  if (PyUnicode_Check(p)) {
    Py_ssize_t size = 0;
    if (const char* data = PyUnicode_AsUTF8AndSize(p, &size)) {
      return Variant(std::string(data, static_cast<std::size_t>(size)));
    }
    // Surrogates: the escapes of bytes that were not UTF-8 go back as those bytes.
    PyErr_Clear();
    PyObject* bytes = PyUnicode_AsEncodedString(p, "utf-8", "surrogateescape");
    if (bytes == nullptr) {
      PyErr_Clear();
      mismatch(value);
    }
    std::string text(PyBytes_AS_STRING(bytes), static_cast<std::size_t>(PyBytes_GET_SIZE(bytes)));
    Py_DECREF(bytes);
    return Variant(std::move(text));
  }
  if (PyBool_Check(p)) return Variant(p == Py_True);
  if (PyLong_Check(p)) return fromInteger(value);
  if (PyFloat_Check(p)) return Variant(PyFloat_AS_DOUBLE(p));
  if (p == Py_None) return Variant::null();
  if (p == emptyInstance) return Variant();
  if (PyDate_Check(p)) return fromDateTime(value);
  if (auto record = recordOf(value)) return Variant(std::move(record));
  const int isDecimal = PyObject_IsInstance(p, decimalClass);
  if (isDecimal < 0) throw py::error_already_set();
  if (isDecimal == 1) return fromDecimal(value);
  if (py::isinstance<Dictionary>(value))
    return Variant(py::cast<std::shared_ptr<Dictionary>>(value));
  if (py::isinstance<Collection>(value))
    return Variant(py::cast<std::shared_ptr<Collection>>(value));
  if (isMapping(value)) return Variant(wrapMapping(value));
  if (PyIndex_Check(p)) {
    PyObject* index = PyNumber_Index(p);
    if (index == nullptr) {
      PyErr_Clear();
      mismatch(value);
    }
    return fromInteger(py::reinterpret_steal<py::object>(index));
  }
  mismatch(value);
}

py::object fromVariant(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
      return py::reinterpret_borrow<py::object>(emptyInstance);
    case Variant::Type::Null:
      return py::none();
    case Variant::Type::Boolean:
      return py::bool_(value.asBoolean());
    case Variant::Type::Integer:
      return py::int_(value.asInteger());
    case Variant::Type::Long:
      return py::int_(value.asLong());
    case Variant::Type::Double:
      return py::float_(value.asDouble());
    case Variant::Type::Currency:
      return toDecimal(value.asCurrency());
    case Variant::Type::Date:
      return toDateTime(value.asDate());
    case Variant::Type::String: {
      PyObject* text = newText(value.asString());
      if (text == nullptr) throw py::error_already_set();
      return py::reinterpret_steal<py::object>(text);
    }
    case Variant::Type::Object:
      return fromObject(value.asObject());
  }
  throw AutomationError::runtime(AutomationError::kTypeMismatch);
}

ByRef* asByRef(py::handle value) {
  if (Py_TYPE(value.ptr()) != byRefType) return nullptr;
  return &py::cast<ByRef&>(value);
}

PyObject* newText(std::string_view text) {
  return PyUnicode_DecodeUTF8(text.data(), static_cast<Py_ssize_t>(text.size()), "surrogateescape");
}

std::string textOf(py::handle value) {
  if (asByRef(value) != nullptr) mismatch(value);
  const Variant v = toVariant(value);
  return v.isString() ? v.asString() : toText(v);
}

}  // namespace varnock::python
