// SPDX-License-Identifier: MIT
// The object host: what automation clients use instead of COM. It creates
// record objects by ProgID ("Varnock.User", any case) or class identifier
// ("{8EC93EA5-...}", any case) and calls their members late-bound, by
// dispatch identifier, with positional and named arguments. Every failure is
// an AutomationError; HRESULT-valued numbers are given as signed 32-bit.
// Objects follow the apartment rule: one caller at a time.
//
//   auto user = varnock::CreateObject("Varnock.User");
//   std::int32_t id = varnock::GetIDsOfNames(*user, {"Username"})[0];
//   varnock::DispatchArguments args{{varnock::Variant("jdoe")}, {}};
//   varnock::Invoke(*user, id, varnock::kDispatchPropertyPut, args);
//   assert(user->GetDataProperty("UserName") == varnock::Variant("jdoe"));
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "varnock/export.h"
#include "varnock/record.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

// Invoke kinds, combinable as a script host combines them (a call written
// without parentheses arrives as method | property get).
inline constexpr std::uint16_t kDispatchMethod = 1;
inline constexpr std::uint16_t kDispatchPropertyGet = 2;
inline constexpr std::uint16_t kDispatchPropertyPut = 4;

// The named-argument identifier of the value of a property assignment.
inline constexpr std::int32_t kDispatchIdPropertyPut = -3;

// Numbers of the dispatch failures.
inline constexpr std::int32_t kMemberNotFound = static_cast<std::int32_t>(0x80020003u);
inline constexpr std::int32_t kParameterNotFound = static_cast<std::int32_t>(0x80020004u);
inline constexpr std::int32_t kDispatchTypeMismatch = static_cast<std::int32_t>(0x80020005u);
inline constexpr std::int32_t kUnknownName = static_cast<std::int32_t>(0x80020006u);
inline constexpr std::int32_t kDispatchOverflow = static_cast<std::int32_t>(0x8002000Au);
inline constexpr std::int32_t kBadParameterCount = static_cast<std::int32_t>(0x8002000Eu);
inline constexpr std::int32_t kParameterNotOptional = static_cast<std::int32_t>(0x8002000Fu);
inline constexpr std::int32_t kNotImplemented = static_cast<std::int32_t>(0x80004001u);
inline constexpr std::int32_t kCannotCreateObject = 429;

// A new, initialised record object; an unknown name raises error 429.
std::shared_ptr<Record> CreateObject(std::string_view progIdOrClassId);

// One creatable class: "User", "Varnock.User", its class identifier and the
// identifier of its dual interface ("_User").
struct ClassDescription {
  std::string name;
  std::string progId;
  std::string classId;
  std::string interfaceId;
};

// Every class, in the type library's order.
std::vector<ClassDescription> classes();

// The arguments of one call. Positional arguments fill the declared
// arguments from the first; named ones give an argument identifier (its
// position, as GetIDsOfNames answers) and a value. After the call, arguments
// declared by reference hold their final values.
struct DispatchArguments {
  std::vector<Variant> positional;
  std::vector<std::pair<std::int32_t, Variant>> named;
};

// The identifiers of a member name followed by names of its arguments, all
// matched without regard to case. An unknown name raises kUnknownName.
std::vector<std::int32_t> GetIDsOfNames(const Record& object,
                                        const std::vector<std::string_view>& names);

// Calls a member. An identifier that the object has no member of that kind
// for raises kMemberNotFound. Omitted optional arguments take their defaults;
// a missing required one raises kParameterNotOptional, too many
// kBadParameterCount, an unknown named one kParameterNotFound; values are
// converted to the declared types (kDispatchTypeMismatch, kDispatchOverflow
// when they do not convert). Past that, a member does what the class's own
// method does: a failed data method returns its failure value, and only
// CountEvery<T> raises.
Variant Invoke(Record& object, std::int32_t dispatchId, std::uint16_t kind,
               DispatchArguments& arguments);

// What an entry of an interface is. A property's getter and setter are two
// entries with one name and one dispatch identifier.
enum class MemberKind : std::uint8_t { Method, PropertyGet, PropertyPut };

// "method", "propget" or "propput", as type libraries write them.
std::string_view kindName(MemberKind kind);

// One argument of a member, as the type library declares it.
struct ArgumentDescription {
  std::string name;
  std::string type;      // "String", "Long", "Boolean" or "Variant"
  bool byReference;      // the call may change it, and the caller sees the change
  bool optional;         // may be left out; it then takes defaultValue
  Variant defaultValue;  // Empty for a required argument
};

// One entry of a class's interface, in interface order.
struct MemberDescription {
  std::string name;
  std::int32_t dispatchId;
  MemberKind kind;
  // True for the methods that load a row into the object itself when they
  // return True (Get<T>, GetFirst<T>, GetLast<T>, GetNext<T>, GetPrevious<T>).
  bool loadsObject;
  // True for the members that read or write the register, and so may wait
  // for its lock and write the SQL trace; the others work on the object alone.
  bool reachesRegister;
  std::vector<ArgumentDescription> arguments;
  // What the entry gives back: "Boolean", "Long", "String", "Variant",
  // "Dictionary", "Collection", a class name ("Zone"), or "" (a setter).
  std::string resultType;
  // One line on what it does, in the class's own names.
  std::string summary;
};

// The interface of a class named by table name, ProgID or class identifier
// (any case); an unknown class raises error 429.
std::vector<MemberDescription> members(std::string_view className);

}  // namespace varnock
VARNOCK_PUBLIC_END
