// SPDX-License-Identifier: MIT
// Writes the type stubs of the Python module, varnock.pyi, from the table
// catalogue: every record class with its properties and its methods, their
// argument names, defaults and results, and each member's summary.
// Usage: generate_python_stubs FOLDER   (writes FOLDER/varnock.pyi)
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "catalogue/catalogue.h"
#include "catalogue/member_summary.h"
#include "varnock/conversions.h"

namespace {

using varnock::Variant;
using varnock::catalogue::Argument;
using varnock::catalogue::InvokeKind;
using varnock::catalogue::Member;
using varnock::catalogue::Table;
using varnock::catalogue::ValueType;

// The module's own names, which the catalogue does not describe.
constexpr const char* kPreamble =
    R"pyi(# SPDX-License-Identifier: MIT
# Type stubs of the varnock module. Generated from the table catalogue by
# tools/generate_python_stubs.cpp; change the catalogue or the generator, not
# this file.
#
# The record classes below name the interfaces that varnock.CreateObject
# gives: at run time every record object is a varnock.Record, whose
# properties and methods are found by name, in any case.
import datetime
import decimal
import os
from typing import Any, Iterator, Literal, Optional, Union, overload

__version__: str

class EmptyType:
    """The type of varnock.Empty, the value of an argument or column that was never given one (distinct from None, which is Null)."""
    def __bool__(self) -> Literal[False]: ...

Empty: EmptyType

# What a column, an argument or a result can hold. None is Null; a
# decimal.Decimal is a currency amount; a datetime is a date.
Value = Union[None, EmptyType, bool, int, float, decimal.Decimal, datetime.datetime, str,
              "Record", "Dictionary", "Collection"]

class ByRef:
    """A variable for an argument passed by reference: .value receives its final value after the call."""
    value: Any
    def __init__(self, value: Any = ...) -> None: ...

class AutomationError(Exception):
    """A failure reported by Varnock: number, description and source."""
    number: int
    description: str
    source: str
    def __init__(self, number: int = 0, description: str = "", source: str = "") -> None: ...

class UnknownMemberError(AutomationError, AttributeError):
    """A record object has no member of that name."""

class Dictionary:
    """An ordered dictionary of text keys to values: what GetDictionary returns and SetDictionary takes."""
    def __init__(self) -> None: ...
    def Add(self, key: str, item: Any) -> None: ...
    def Item(self, key: str) -> Any: ...
    def Exists(self, key: str) -> bool: ...
    def Keys(self) -> list[str]: ...
    def Items(self) -> list[Any]: ...
    def keys(self) -> list[str]: ...
    def values(self) -> list[Any]: ...
    def items(self) -> list[tuple[str, Any]]: ...
    def get(self, key: str, default: Any = None) -> Any: ...
    @property
    def Count(self) -> int: ...
    def __len__(self) -> int: ...
    def __getitem__(self, key: str) -> Any: ...
    def __setitem__(self, key: str, item: Any) -> None: ...
    def __contains__(self, key: object) -> bool: ...
    def __iter__(self) -> Iterator[str]: ...

class Collection:
    """The ordered collection that the listing methods return. Item counts from 1; Python indexing from 0 (c[0] is c.Item(1))."""
    def __init__(self) -> None: ...
    def Add(self, item: Any) -> None: ...
    def Item(self, index: int) -> Any: ...
    @property
    def Count(self) -> int: ...
    def __len__(self) -> int: ...
    @overload
    def __getitem__(self, index: int) -> Any: ...
    @overload
    def __getitem__(self, index: slice) -> list[Any]: ...
    def __iter__(self) -> Iterator[Any]: ...

class Record:
    """A Varnock record object, made by varnock.CreateObject; names match without regard to case."""
    def __getattr__(self, name: str) -> Any: ...
    def __setattr__(self, name: str, value: Any) -> None: ...

def members(class_name: str) -> list[tuple[str, int, str, list[str]]]:
    """The interface of a class in order: name, dispatch identifier, kind and argument names."""
def set_event_log(setting: str) -> None:
    """Where event log entries go: "syslog", "journal", "file:PATH" or "stderr"."""
def create_register(path: Union[str, "os.PathLike[str]"]) -> str:
    """Creates a new, empty SQLite register at path and returns its connection string."""
def set_sql_trace(path: Optional[Union[str, "os.PathLike[str]"]]) -> None:
    """Appends one JSON Lines entry per statement sent to path; None switches the trace off."""
def idl() -> str:
    """The type library's description."""
)pyi";

std::string pythonType(ValueType type, std::string_view recordClass) {
  switch (type) {
    case ValueType::None:
      return "None";
    case ValueType::String:
      return "str";
    case ValueType::Long:
      return "int";
    case ValueType::Boolean:
      return "bool";
    case ValueType::Variant:
      return "Value";
    case ValueType::Dictionary:
      return "Dictionary";
    case ValueType::Collection:
      return "Collection";
    case ValueType::Record:
      return "Optional[" + std::string(recordClass) + "]";
  }
  return "Any";
}

// A default as Python writes it.
std::string pythonLiteral(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Boolean:
      return value.asBoolean() ? "True" : "False";
    case Variant::Type::String: {
      std::string text = "\"";
      for (const char c : value.asString()) {
        if (c == '"' || c == '\\') text += '\\';
        text += c;
      }
      return text + "\"";
    }
    case Variant::Type::Null:
      return "None";
    default:
      return varnock::toText(value);
  }
}

// An argument passed by reference may be a varnock.ByRef as well.
std::string argumentType(const Argument& a) {
  const std::string type = pythonType(a.type, {});
  return a.byRef ? "Union[" + type + ", ByRef]" : type;
}

std::string docstring(const std::string& text) {
  return "        \"\"\"" + text + "\"\"\"\n";
}

std::string classStub(const Table& t) {
  std::ostringstream out;
  out << "\nclass " << t.name << "(Record):\n"
      << "    \"\"\"The record object of the register's " << t.name << " table (" << t.progId
      << ").\"\"\"\n";
  for (const Member& m : t.members) {
    if (m.kind == InvokeKind::PropertyPut) continue;  // the getter stands for both
    const std::string summary = varnock::catalogue::memberSummary(t, m);
    if (m.kind == InvokeKind::PropertyGet) {
      const std::string type = pythonType(m.result, m.resultClass);
      out << "    @property\n"
          << "    def " << m.name << "(self) -> " << type << ":\n"
          << docstring(summary) << "    @" << m.name << ".setter\n"
          << "    def " << m.name << "(self, value: " << type << ") -> None: ...\n";
      continue;
    }
    out << "    def " << m.name << "(self";
    for (const Argument& a : m.arguments) {
      out << ", " << a.name << ": " << argumentType(a);
      if (a.optional) out << " = " << pythonLiteral(a.defaultValue);
    }
    out << ") -> " << pythonType(m.result, m.resultClass) << ":\n" << docstring(summary);
  }
  return out.str();
}

std::string stubs() {
  std::ostringstream out;
  out << kPreamble;
  for (const Table& t : varnock::catalogue::tables())
    out << classStub(t);
  out << "\n";
  for (const Table& t : varnock::catalogue::tables()) {
    out << "@overload\n"
        << "def CreateObject(name: Literal[\"" << t.progId << "\"]) -> " << t.name << ": ...\n";
  }
  out << "@overload\n"
      << "def CreateObject(name: str) -> Record:\n"
      << "    \"\"\"A new record object, named by ProgID (\"Varnock.User\") or class identifier, "
         "in any case.\"\"\"\n";
  return out.str();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: generate_python_stubs FOLDER\n";
    return 2;
  }
  const std::filesystem::path file = std::filesystem::path(argv[1]) / "varnock.pyi";
  std::ofstream out(file, std::ios::binary);
  out << stubs();
  out.close();
  if (!out) {
    std::cerr << "generate_python_stubs: cannot write " << file << '\n';
    return 1;
  }
  return 0;
}
