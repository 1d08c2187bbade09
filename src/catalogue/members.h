// SPDX-License-Identifier: MIT
// The members of a record class's dispatch interface, derived from its table:
// what a late-bound caller can name, with dispatch identifiers, argument names,
// types, defaults and directions, in interface order.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "varnock/variant.h"

namespace varnock::catalogue {

struct Table;

// Dispatch identifiers: properties (DSN and the columns) count down from
// kPropertyDispatchBase + the column count (DSN) to kPropertyDispatchBase (the
// last column), getter and setter alike; methods count up from
// kMethodDispatchBase + the number of properties + 1, in interface order.
inline constexpr std::int32_t kPropertyDispatchBase = 0x68030000;
inline constexpr std::int32_t kMethodDispatchBase = 0x60030000;

// The identifier of a table's first method (GetTableName).
constexpr std::int32_t firstMethodDispatchId(std::size_t columnCount) {
  return kMethodDispatchBase + static_cast<std::int32_t>(columnCount) + 2;
}

enum class InvokeKind : std::uint8_t { Method, PropertyGet, PropertyPut };

// Types at the interface boundary.
enum class ValueType : std::uint8_t {
  None,        // no result (property put)
  String,      // automation string
  Long,        // signed 32-bit integer
  Boolean,     // automation boolean
  Variant,     // any value
  Dictionary,  // an ordered text-to-value dictionary
  Collection,  // a collection of record objects
  Record,      // a record object of the class Member::resultClass
};

// What a member does; together with Member::index it selects the behaviour.
enum class MemberRole : std::uint8_t {
  Dsn,
  GetTableName,
  ColumnProperty,  // index: the column's position
  GetLastErrorMessage,
  IsDataProperty,
  GetDataProperty,
  SetDataProperty,
  GetDictionary,
  SetDictionary,
  Get,
  GetFirst,
  GetLast,
  GetNext,
  GetPrevious,
  GetEvery,
  CountEvery,
  Add,
  Update,
  Delete,
  GetParentIn,             // index: the relation's position
  GetChildrenIn,           // index: the relation's position
  CountChildrenIn,         // index: the relation's position
  GetDerivedChildrenIn,    // index: the relation's position
  CountDerivedChildrenIn,  // index: the relation's position
};

struct Argument {
  std::string_view name;
  ValueType type;
  bool byRef;
  bool optional;
  Variant defaultValue;  // when optional
};

struct Member {
  std::string name;
  InvokeKind kind;
  std::int32_t dispatchId;
  MemberRole role;
  std::uint8_t index;
  ValueType result;
  std::string_view resultClass;  // ValueType::Record only
  std::vector<Argument> arguments;
};

// The interface of one table, in order; used when the catalogue is built.
std::vector<Member> buildMembers(const Table& table);

}  // namespace varnock::catalogue
