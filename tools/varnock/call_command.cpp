// SPDX-License-Identifier: MIT
#include "call_command.h"

#include <algorithm>
#include <string_view>

#include "dsn.h"
#include "text_util.h"
#include "value_files.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"
#include "varnock/host.h"
#include "varnock/sql_trace.h"

namespace varnock::cli {

namespace {

using Interface = std::vector<MemberDescription>;

Interface interfaceOf(const std::string& className) {
  try {
    return members(className);
  } catch (const AutomationError& e) {
    if (e.number() != kCannotCreateObject) throw;
    throw UsageError("there is no class named " + inQuotes(className));
  }
}

// Table names are accepted as well as ProgIDs and class identifiers.
std::shared_ptr<Record> createNamed(const std::string& className) {
  try {
    return CreateObject(className);
  } catch (const AutomationError& e) {
    if (e.number() != kCannotCreateObject) throw;
  }
  return CreateObject("Varnock." + className);
}

const MemberDescription* find(const Interface& described, std::string_view name, MemberKind kind) {
  const auto it = std::find_if(described.begin(), described.end(), [&](const MemberDescription& m) {
    return m.kind == kind && equalsIgnoringCase(m.name, name);
  });
  return it == described.end() ? nullptr : &*it;
}

// A name that is both would be a method; a property name reads the property.
const MemberDescription& calledMember(const Interface& described, const CallRequest& request) {
  if (const MemberDescription* method = find(described, request.member, MemberKind::Method))
    return *method;
  if (const MemberDescription* get = find(described, request.member, MemberKind::PropertyGet))
    return *get;
  throw UsageError(request.className + " has no member named " + inQuotes(request.member));
}

// "name=value" is named when name is one of the member's arguments;
// otherwise the whole word is a positional value.
DispatchArguments argumentsOf(const MemberDescription& member,
                              const std::vector<std::string>& words, ValueReader& values) {
  DispatchArguments arguments;
  for (const std::string& word : words) {
    const std::size_t equals = word.find('=');
    std::int32_t position = -1;
    if (equals != std::string::npos) {
      const std::string_view name(word.data(), equals);
      for (std::size_t i = 0; i < member.arguments.size(); ++i) {
        if (equalsIgnoringCase(member.arguments[i].name, name)) {
          position = static_cast<std::int32_t>(i);
          break;
        }
      }
    }
    if (position < 0) {
      arguments.positional.push_back(values.read(word));
    } else {
      arguments.named.emplace_back(position,
                                   values.read(std::string_view(word).substr(equals + 1)));
    }
  }
  return arguments;
}

// Written-back values count as changed only when they read differently:
// a number given for a text argument comes back as the same digits.
bool changed(const Variant& before, const Variant& after) {
  if (before == after) return false;
  if (before.isObject() || after.isObject() || before.isNull() || after.isNull()) return true;
  try {
    return toText(before) != toText(after);
  } catch (const AutomationError&) {
    return true;
  }
}

std::vector<NamedValue> changedByReference(const MemberDescription& member,
                                           const DispatchArguments& before,
                                           const DispatchArguments& after) {
  std::vector<NamedValue> byRef;
  for (std::size_t i = 0; i < after.positional.size(); ++i) {
    if (i < member.arguments.size() && changed(before.positional[i], after.positional[i])) {
      byRef.push_back({member.arguments[i].name, after.positional[i]});
    }
  }
  for (std::size_t i = 0; i < after.named.size(); ++i) {
    const auto& [position, value] = after.named[i];
    if (changed(before.named[i].second, value)) {
      byRef.push_back({member.arguments[static_cast<std::size_t>(position)].name, value});
    }
  }
  return byRef;
}

struct Assignment {
  const MemberDescription* property;
  Variant value;
};

// A refused value leaves the column as it was and sets the last error
// message; the message alone would miss a refusal that repeats the previous
// message, the read-back alone a Null refused on a column that is still Null.
std::optional<Refusal> assign(Record& object, const Assignment& assignment) {
  const std::string before = object.GetLastErrorMessage();
  DispatchArguments put{{}, {{kDispatchIdPropertyPut, assignment.value}}};
  Invoke(object, assignment.property->dispatchId, kDispatchPropertyPut, put);
  const std::string after = object.GetLastErrorMessage();
  bool refused = after != before;
  // DSN takes any value as its text, so only columns are read back.
  if (!refused && !equalsIgnoringCase(assignment.property->name, "DSN")) {
    DispatchArguments none;
    refused = Invoke(object, assignment.property->dispatchId, kDispatchPropertyGet, none) !=
              assignment.value;
  }
  if (!refused) return std::nullopt;
  return Refusal{assignment.property->name, assignment.value, after};
}

std::vector<NamedValue> columnsOf(const Record& object) {
  std::vector<NamedValue> columns;
  const std::shared_ptr<Dictionary> fields = object.GetDictionary();  // kept alive for the loop
  for (const auto& [field, value] : *fields)
    columns.push_back({field, value});
  return columns;
}

}  // namespace

CallOutcome runCall(const CallRequest& request, std::istream& standardInput) {
  const Interface described = interfaceOf(request.className);
  const MemberDescription& member = calledMember(described, request);

  // Every value is read before anything is done, so a typing mistake
  // changes nothing.
  ValueReader values(standardInput);
  std::vector<Assignment> assignments;
  for (const auto& [column, text] : request.assignments) {
    const MemberDescription* property = find(described, column, MemberKind::PropertyPut);
    if (property == nullptr) {
      throw UsageError(inQuotes(column) + " is not a property of " + request.className);
    }
    assignments.push_back({property, values.read(text)});
  }
  DispatchArguments arguments = argumentsOf(member, request.arguments, values);

  if (request.trace) setSqlTrace(*request.trace);
  const std::shared_ptr<Record> object = createNamed(request.className);
  object->put_DSN(chosenConnectionString(request.dsn));

  CallOutcome outcome;
  outcome.method = member.kind == MemberKind::Method;
  for (const Assignment& assignment : assignments) {
    if (auto refusal = assign(*object, assignment)) outcome.refusals.push_back(*refusal);
  }
  if (!outcome.refusals.empty()) {
    outcome.lastError = object->GetLastErrorMessage();
    return outcome;
  }

  const std::string errorBefore = object->GetLastErrorMessage();
  const DispatchArguments given = arguments;
  const std::uint16_t kind = outcome.method ? kDispatchMethod : kDispatchPropertyGet;
  outcome.result = Invoke(*object, member.dispatchId, kind, arguments);
  outcome.byRef = changedByReference(member, given, arguments);
  outcome.lastError = object->GetLastErrorMessage();
  outcome.newLastError = outcome.lastError != errorBefore;
  if (outcome.result->type() == Variant::Type::Boolean && outcome.result->asBoolean() &&
      member.loadsObject) {
    outcome.object = columnsOf(*object);
  }
  return outcome;
}

}  // namespace varnock::cli
