// SPDX-License-Identifier: MIT
// Object creation by ProgID or class identifier, and the member tables that
// script hosts list.
#include "automation/text.h"
#include "catalogue/catalogue.h"
#include "catalogue/member_summary.h"
#include "record/new_record.h"
#include "varnock/automation_error.h"
#include "varnock/host.h"

namespace varnock {

namespace {

// The table whose ProgID, class identifier or (for member listings) name is given.
const catalogue::Table& classNamed(std::string_view name, bool acceptTableName) {
  std::string hint;
  for (const catalogue::Table& t : catalogue::tables()) {
    if (equalsIgnoringCase(name, t.progId) || equalsIgnoringCase(name, t.classId)) return t;
    if (equalsIgnoringCase(name, t.name)) {
      if (acceptTableName) return t;
      // A table's name is what most people try first.
      hint = "; its ProgID is '" + t.progId + "'";
    }
  }
  throw AutomationError(kCannotCreateObject,
                        "ActiveX component can't create object: no class of " +
                            std::string(catalogue::kLibraryName) + " is named '" +
                            std::string(name) + "'" + hint,
                        AutomationError::kRuntimeSource);
}

MemberKind kindOf(catalogue::InvokeKind kind) {
  switch (kind) {
    case catalogue::InvokeKind::Method:
      return MemberKind::Method;
    case catalogue::InvokeKind::PropertyGet:
      return MemberKind::PropertyGet;
    case catalogue::InvokeKind::PropertyPut:
      return MemberKind::PropertyPut;
  }
  return MemberKind::Method;
}

bool loadsObject(catalogue::MemberRole role) {
  switch (role) {
    case catalogue::MemberRole::Get:
    case catalogue::MemberRole::GetFirst:
    case catalogue::MemberRole::GetLast:
    case catalogue::MemberRole::GetNext:
    case catalogue::MemberRole::GetPrevious:
      return true;
    default:
      return false;
  }
}

// Every role is listed, so that a new one has to be placed on one side.
bool reachesRegister(catalogue::MemberRole role) {
  switch (role) {
    case catalogue::MemberRole::Dsn:
    case catalogue::MemberRole::GetTableName:
    case catalogue::MemberRole::ColumnProperty:
    case catalogue::MemberRole::GetLastErrorMessage:
    case catalogue::MemberRole::IsDataProperty:
    case catalogue::MemberRole::GetDataProperty:
    case catalogue::MemberRole::SetDataProperty:
    case catalogue::MemberRole::GetDictionary:
    case catalogue::MemberRole::SetDictionary:
      return false;
    case catalogue::MemberRole::Get:
    case catalogue::MemberRole::GetFirst:
    case catalogue::MemberRole::GetLast:
    case catalogue::MemberRole::GetNext:
    case catalogue::MemberRole::GetPrevious:
    case catalogue::MemberRole::GetEvery:
    case catalogue::MemberRole::CountEvery:
    case catalogue::MemberRole::Add:
    case catalogue::MemberRole::Update:
    case catalogue::MemberRole::Delete:
    case catalogue::MemberRole::GetParentIn:
    case catalogue::MemberRole::GetChildrenIn:
    case catalogue::MemberRole::CountChildrenIn:
    case catalogue::MemberRole::GetDerivedChildrenIn:
    case catalogue::MemberRole::CountDerivedChildrenIn:
      return true;
  }
  return true;
}

}  // namespace

std::string_view kindName(MemberKind kind) {
  switch (kind) {
    case MemberKind::Method:
      return "method";
    case MemberKind::PropertyGet:
      return "propget";
    case MemberKind::PropertyPut:
      return "propput";
  }
  return {};
}

std::shared_ptr<Record> CreateObject(std::string_view progIdOrClassId) {
  return newRecord(classNamed(progIdOrClassId, false).name);
}

std::vector<ClassDescription> classes() {
  std::vector<ClassDescription> described;
  for (const catalogue::Table& t : catalogue::tables())
    described.push_back(
        {std::string(t.name), t.progId, std::string(t.classId), std::string(t.interfaceId)});
  return described;
}

std::vector<MemberDescription> members(std::string_view className) {
  std::vector<MemberDescription> described;
  const catalogue::Table& table = classNamed(className, true);
  for (const catalogue::Member& m : table.members) {
    MemberDescription d{m.name,
                        m.dispatchId,
                        kindOf(m.kind),
                        loadsObject(m.role),
                        reachesRegister(m.role),
                        {},
                        catalogue::valueTypeName(m.result, m.resultClass),
                        catalogue::memberSummary(table, m)};
    for (const catalogue::Argument& a : m.arguments) {
      d.arguments.push_back({std::string(a.name), catalogue::valueTypeName(a.type), a.byRef,
                             a.optional, a.optional ? a.defaultValue : Variant()});
    }
    described.push_back(std::move(d));
  }
  return described;
}

}  // namespace varnock
