// SPDX-License-Identifier: MIT
// The interface pattern shared by all record classes.
#include "catalogue/members.h"

#include "catalogue/catalogue.h"

namespace varnock::catalogue {

namespace {

constexpr bool kByRef = true;
constexpr bool kByValue = false;

Argument required(std::string_view name, ValueType type, bool byRef) {
  return {name, type, byRef, false, Variant()};
}
Argument optional(std::string_view name, ValueType type, bool byRef, Variant defaultValue) {
  return {name, type, byRef, true, std::move(defaultValue)};
}
Argument whereClause(bool byRef) {
  return optional("strWhereClause", ValueType::String, byRef, Variant(""));
}
Argument orderClause(bool byRef) {
  return optional("strOrderClause", ValueType::String, byRef, Variant(""));
}

class Builder {
 public:
  explicit Builder(const Table& table)
      : table_(table), nextMethodId_(firstMethodDispatchId(table.columns.size())) {}

  void property(std::string_view name, std::int32_t position, MemberRole role, std::uint8_t index,
                ValueType type) {
    const std::int32_t id = kPropertyDispatchBase + position;
    members_.push_back({std::string(name), InvokeKind::PropertyGet, id, role, index, type, {}, {}});
    members_.push_back({std::string(name),
                        InvokeKind::PropertyPut,
                        id,
                        role,
                        index,
                        ValueType::None,
                        {},
                        {required("value", type, kByValue)}});
  }

  void method(std::string name, MemberRole role, ValueType result, std::vector<Argument> arguments,
              std::uint8_t index = 0, std::string_view resultClass = {}) {
    members_.push_back({std::move(name), InvokeKind::Method, nextMethodId_++, role, index, result,
                        resultClass, std::move(arguments)});
  }

  std::string named(std::string_view verb) const {
    return std::string(verb) + std::string(table_.name);
  }

  std::vector<Member> finish() { return std::move(members_); }

 private:
  const Table& table_;
  std::int32_t nextMethodId_;
  std::vector<Member> members_;
};

void addRelationMethods(Builder& b, const Table& t) {
  for (std::size_t i = 0; i < t.relations.size(); ++i) {
    const Relation& r = t.relations[i];
    const auto index = static_cast<std::uint8_t>(i);
    const std::string other(r.other);
    switch (r.kind) {
      case RelationKind::Parent:
        b.method("GetParentIn" + other, MemberRole::GetParentIn, ValueType::Record, {}, index,
                 r.other);
        break;
      case RelationKind::Children:
        b.method("GetChildrenIn" + other, MemberRole::GetChildrenIn, ValueType::Collection,
                 {whereClause(kByRef), orderClause(kByRef)}, index);
        b.method("CountChildrenIn" + other, MemberRole::CountChildrenIn, ValueType::Long, {},
                 index);
        break;
      case RelationKind::DerivedChildren: {
        std::vector<Argument> listArguments;
        if (r.listTakesArguments) listArguments = {whereClause(kByValue), orderClause(kByValue)};
        b.method("GetDerivedChildrenIn" + other, MemberRole::GetDerivedChildrenIn,
                 ValueType::Collection, std::move(listArguments), index);
        b.method("CountDerivedChildrenIn" + other, MemberRole::CountDerivedChildrenIn,
                 ValueType::Long, {whereClause(kByValue), orderClause(kByValue)}, index);
        break;
      }
    }
  }
}

}  // namespace

std::vector<Member> buildMembers(const Table& t) {
  const auto columnCount = static_cast<std::int32_t>(t.columns.size());
  Builder b(t);
  b.property("DSN", columnCount, MemberRole::Dsn, 0, ValueType::String);
  b.method("GetTableName", MemberRole::GetTableName, ValueType::String, {});
  for (std::int32_t i = 0; i < columnCount; ++i) {
    b.property(t.columns[static_cast<std::size_t>(i)].property, columnCount - 1 - i,
               MemberRole::ColumnProperty, static_cast<std::uint8_t>(i), ValueType::Variant);
  }
  b.method("GetLastErrorMessage", MemberRole::GetLastErrorMessage, ValueType::String, {});
  b.method("IsDataProperty", MemberRole::IsDataProperty, ValueType::Boolean,
           {required("strPropertyName", ValueType::String, kByValue),
            optional("blnCaseSensitive", ValueType::Boolean, kByValue, Variant(false))});
  b.method("GetDataProperty", MemberRole::GetDataProperty, ValueType::Variant,
           {required("strPropertyName", ValueType::String, kByRef)});
  b.method("SetDataProperty", MemberRole::SetDataProperty, ValueType::Boolean,
           {required("strPropertyName", ValueType::String, kByRef),
            required("varPropertyValue", ValueType::Variant, kByRef)});
  b.method("GetDictionary", MemberRole::GetDictionary, ValueType::Dictionary, {});
  b.method("SetDictionary", MemberRole::SetDictionary, ValueType::Boolean,
           {required("varDict", ValueType::Variant, kByRef)});

  auto clauses = [] { return std::vector<Argument>{whereClause(kByRef), orderClause(kByRef)}; };
  auto positioned = [&] {
    std::vector<Argument> arguments{required("lngOffset", ValueType::Long, kByValue)};
    for (Argument& a : clauses())
      arguments.push_back(std::move(a));
    return arguments;
  };
  b.method(b.named("Get"), MemberRole::Get, ValueType::Boolean, clauses());
  b.method(b.named("GetFirst"), MemberRole::GetFirst, ValueType::Boolean, clauses());
  b.method(b.named("GetLast"), MemberRole::GetLast, ValueType::Boolean, clauses());
  b.method(b.named("GetNext"), MemberRole::GetNext, ValueType::Boolean, positioned());
  b.method(b.named("GetPrevious"), MemberRole::GetPrevious, ValueType::Boolean, positioned());
  std::vector<Argument> every = clauses();
  every.push_back(optional("lngOffset", ValueType::Variant, kByRef, Variant(1)));
  every.push_back(optional("lngNumRecords", ValueType::Variant, kByRef, Variant(0)));
  b.method(b.named("GetEvery"), MemberRole::GetEvery, ValueType::Collection, std::move(every));
  b.method(b.named("CountEvery"), MemberRole::CountEvery, ValueType::Long, {whereClause(kByRef)});
  b.method(b.named("Add"), MemberRole::Add, ValueType::Boolean, {});
  b.method(b.named("Update"), MemberRole::Update, ValueType::Boolean, {});
  b.method(b.named("Delete"), MemberRole::Delete, ValueType::Boolean, {whereClause(kByRef)});
  addRelationMethods(b, t);
  return b.finish();
}

}  // namespace varnock::catalogue
