// SPDX-License-Identifier: MIT
#include "host/arguments.h"

#include <bitset>

#include "varnock/automation_error.h"
#include "varnock/conversions.h"

namespace varnock::host {

namespace {

[[noreturn]] void fail(std::int32_t number, std::string description) {
  throw AutomationError(number, std::move(description), AutomationError::kRuntimeSource);
}

// The slot a named argument fills; the value of a property assignment may
// also come by its own identifier.
std::size_t slotOf(const catalogue::Member& member, std::int32_t id) {
  if (id == kDispatchIdPropertyPut && member.kind == catalogue::InvokeKind::PropertyPut) return 0;
  if (id < 0 || static_cast<std::size_t>(id) >= member.arguments.size()) {
    fail(kParameterNotFound, "Parameter not found");
  }
  return static_cast<std::size_t>(id);
}

Variant converted(const catalogue::Argument& argument, const Variant& value) {
  try {
    switch (argument.type) {
      case catalogue::ValueType::String:
        return value.isString() ? value : Variant(toText(value));
      case catalogue::ValueType::Long:
        return Variant(toLong(value));
      case catalogue::ValueType::Boolean:
        return Variant(toBoolean(value));
      default:
        return value;
    }
  } catch (const AutomationError& e) {
    if (e.number() == AutomationError::kOverflow) {
      fail(kDispatchOverflow, "Out of present range: argument " + std::string(argument.name));
    }
    fail(kDispatchTypeMismatch, "Type mismatch: argument " + std::string(argument.name));
  }
}

}  // namespace

void bindArguments(const catalogue::Member& member, const DispatchArguments& given,
                   BoundArguments& bound) {
  const std::size_t declared = member.arguments.size();
  if (given.positional.size() + given.named.size() > declared) {
    fail(kBadParameterCount, "Invalid number of parameters");
  }
  std::bitset<kMaxArguments> filled;
  for (std::size_t i = 0; i < given.positional.size(); ++i) {
    bound.values[i] = given.positional[i];
    filled.set(i);
  }
  for (const auto& [id, value] : given.named) {
    const std::size_t slot = slotOf(member, id);
    if (filled.test(slot)) {
      fail(kParameterNotFound,
           "Parameter given twice: " + std::string(member.arguments[slot].name));
    }
    bound.values[slot] = value;
    filled.set(slot);
  }
  for (std::size_t i = 0; i < declared; ++i) {
    const catalogue::Argument& argument = member.arguments[i];
    if (!filled.test(i)) {
      if (!argument.optional) fail(kParameterNotOptional, "Parameter not optional");
      bound.values[i] = argument.defaultValue;
    } else {
      bound.values[i] = converted(argument, bound.values[i]);
    }
  }
}

void writeBack(const catalogue::Member& member, const BoundArguments& bound,
               DispatchArguments& given) {
  for (std::size_t i = 0; i < given.positional.size(); ++i) {
    if (member.arguments[i].byRef) given.positional[i] = bound.values[i];
  }
  for (auto& [id, value] : given.named) {
    const std::size_t slot = slotOf(member, id);
    if (member.arguments[slot].byRef) value = bound.values[slot];
  }
}

}  // namespace varnock::host
