// SPDX-License-Identifier: MIT
// Late-bound calls: name look-up and Invoke over the catalogue's member
// tables. Each member's behaviour is chosen by its role, once for all classes.
#include "automation/text.h"
#include "catalogue/catalogue.h"
#include "host/arguments.h"
#include "host/dispatch_table.h"
#include "record/record_internal.h"
#include "relations/operations.h"
#include "sql/operations.h"
#include "varnock/automation_error.h"
#include "varnock/host.h"

namespace varnock {

namespace {

using catalogue::InvokeKind;
using catalogue::Member;
using catalogue::MemberRole;
using host::BoundArguments;

[[noreturn]] void unknownName(std::string_view name) {
  throw AutomationError(kUnknownName, "Unknown name: " + std::string(name),
                        AutomationError::kRuntimeSource);
}

Variant call(Record& object, const Member& member, BoundArguments& arguments) {
  auto& a = arguments.values;
  const bool put = member.kind == InvokeKind::PropertyPut;
  switch (member.role) {
    case MemberRole::Dsn:
      if (put) {
        object.put_DSN(a[0].asString());
        return {};
      }
      return Variant(object.get_DSN());
    case MemberRole::GetTableName:
      return Variant(object.GetTableName());
    case MemberRole::ColumnProperty:
      if (put) {
        RecordInternal::assign(object, member.index, a[0]);
        return {};
      }
      return RecordInternal::column(object, member.index);
    case MemberRole::GetLastErrorMessage:
      return Variant(object.GetLastErrorMessage());
    case MemberRole::IsDataProperty:
      return Variant(object.IsDataProperty(a[0].asString(), a[1].asBoolean()));
    case MemberRole::GetDataProperty:
      return object.GetDataProperty(a[0].asString());
    case MemberRole::SetDataProperty:
      return Variant(object.SetDataProperty(a[0].asString(), a[1]));
    case MemberRole::GetDictionary:
      return Variant(object.GetDictionary());
    case MemberRole::SetDictionary:
      return Variant(object.SetDictionary(a[0]));
    case MemberRole::Get:
      return Variant(sql::lookUp(object, a[0].asString(), a[1].asString()));
    case MemberRole::GetFirst:
      return Variant(sql::loadFirst(object, a[0].asString(), a[1].asString()));
    case MemberRole::GetLast: {
      std::string order = a[1].asString();
      const bool loaded = sql::loadLast(object, a[0].asString(), order);
      a[1] = Variant(std::move(order));  // written back to a by-reference caller
      return Variant(loaded);
    }
    case MemberRole::GetNext:
      return Variant(sql::loadNext(object, a[0].asLong(), a[1].asString(), a[2].asString()));
    case MemberRole::GetPrevious:
      return Variant(sql::loadPrevious(object, a[0].asLong(), a[1].asString(), a[2].asString()));
    case MemberRole::GetEvery:
      return Variant(sql::listEvery(object, a[0].asString(), a[1].asString(), a[2], a[3]));
    case MemberRole::CountEvery:
      return Variant(sql::countEvery(object, a[0].asString()));
    case MemberRole::Add:
      return Variant(sql::insertRow(object));
    case MemberRole::Update:
      return Variant(sql::updateRow(object));
    case MemberRole::Delete:
      return Variant(sql::deleteRows(object, a[0].asString()));
    case MemberRole::GetParentIn:
      return Variant(relations::parentIn(object, member.index));
    case MemberRole::GetChildrenIn:
      return Variant(relations::childrenIn(object, member.index, a[0].asString(), a[1].asString()));
    case MemberRole::CountChildrenIn:
      return Variant(relations::countChildrenIn(object, member.index));
    case MemberRole::GetDerivedChildrenIn:
      // Some list methods take no arguments: they list without condition or order.
      return Variant(relations::derivedChildrenIn(
          object, member.index, member.arguments.empty() ? std::string() : a[0].asString(),
          member.arguments.empty() ? std::string() : a[1].asString()));
    case MemberRole::CountDerivedChildrenIn:
      return Variant(relations::countDerivedChildrenIn(object, member.index, a[0].asString(),
                                                       a[1].asString()));
  }
  throw AutomationError(kMemberNotFound, "Member not found", AutomationError::kRuntimeSource);
}

}  // namespace

std::vector<std::int32_t> GetIDsOfNames(const Record& object,
                                        const std::vector<std::string_view>& names) {
  std::vector<std::int32_t> ids;
  if (names.empty()) return ids;
  const Member* found = nullptr;
  for (const Member& m : RecordInternal::table(object).members) {
    if (equalsIgnoringCase(m.name, names[0])) {
      found = &m;
      break;
    }
  }
  if (found == nullptr) unknownName(names[0]);
  ids.push_back(found->dispatchId);
  for (std::size_t n = 1; n < names.size(); ++n) {
    std::int32_t position = -1;
    for (std::size_t i = 0; i < found->arguments.size(); ++i) {
      if (equalsIgnoringCase(found->arguments[i].name, names[n])) {
        position = static_cast<std::int32_t>(i);
        break;
      }
    }
    if (position < 0) unknownName(names[n]);
    ids.push_back(position);
  }
  return ids;
}

Variant Invoke(Record& object, std::int32_t dispatchId, std::uint16_t kind,
               DispatchArguments& arguments) {
  const Member* member = host::findMember(RecordInternal::table(object), dispatchId, kind);
  if (member == nullptr) {
    throw AutomationError(kMemberNotFound, "Member not found", AutomationError::kRuntimeSource);
  }
  BoundArguments bound;
  host::bindArguments(*member, arguments, bound);
  Variant result = call(object, *member, bound);
  host::writeBack(*member, bound, arguments);
  return result;
}

}  // namespace varnock
