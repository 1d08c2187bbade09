// SPDX-License-Identifier: MIT
#include "catalogue/member_summary.h"

namespace varnock::catalogue {

namespace {

std::string columnSummary(const Column& c) {
  return std::string(c.field) + ": " + std::string(sqlTypeName(c.type)) + ", Null " +
         (c.nullRefused ? "refused" : "allowed") +
         ". A refused value is not stored; GetLastErrorMessage says why.";
}

}  // namespace

std::string valueTypeName(ValueType type, std::string_view recordClass) {
  switch (type) {
    case ValueType::None:
      return "";
    case ValueType::String:
      return "String";
    case ValueType::Long:
      return "Long";
    case ValueType::Boolean:
      return "Boolean";
    case ValueType::Variant:
      return "Variant";
    case ValueType::Dictionary:
      return "Dictionary";
    case ValueType::Collection:
      return "Collection";
    case ValueType::Record:
      return std::string(recordClass);
  }
  return "";
}

std::string memberSummary(const Table& table, const Member& member) {
  const std::string t(table.name);
  const auto other = [&] { return std::string(table.relations[member.index].other); };
  const std::string walk =
      " meeting strWhereClause (any row when empty) in the order strOrderClause";
  switch (member.role) {
    case MemberRole::Dsn:
      return "The connection string the object opens for each call.";
    case MemberRole::GetTableName:
      return "The name of the object's table, \"" + t + "\".";
    case MemberRole::ColumnProperty:
      return columnSummary(table.columns[member.index]);
    case MemberRole::GetLastErrorMessage:
      return "The description of the last refused value or failed call; empty when none.";
    case MemberRole::IsDataProperty:
      return "True when strPropertyName names a column of " + t +
             " (in any case unless blnCaseSensitive).";
    case MemberRole::GetDataProperty:
      return "The value of the column that strPropertyName names; Empty when it names none.";
    case MemberRole::SetDataProperty:
      return "Assigns varPropertyValue to the column that strPropertyName names; True when it "
             "was stored.";
    case MemberRole::GetDictionary:
      return "A new Dictionary of every column's value by field name, in column order.";
    case MemberRole::SetDictionary:
      return "Assigns each value of the Dictionary varDict to the column its key names, in "
             "order, stopping at the first refusal; True when all were stored.";
    case MemberRole::Get:
      return "Loads the " + t +
             " row whose key the key properties hold (with strWhereClause, the first row "
             "meeting it); True when a row was found.";
    case MemberRole::GetFirst:
      return "Loads the first " + t + " row" + walk + "; True when there is one.";
    case MemberRole::GetLast:
      return "Loads the last " + t + " row" + walk +
             ", which is written back reversed; True when there is one.";
    case MemberRole::GetNext:
      return "Loads the " + t + " row after position lngOffset (from 1)" + walk +
             "; True when there is one.";
    case MemberRole::GetPrevious:
      return "Loads the " + t + " row before position lngOffset (from 1)" + walk +
             "; True when there is one.";
    case MemberRole::GetEvery:
      return "The " + t + " rows" + walk +
             ", leaving out the first lngOffset when it is 2 or more and keeping at most "
             "lngNumRecords when it is above 0, as a Collection of new " +
             t + " objects.";
    case MemberRole::CountEvery:
      return "The number of " + t + " rows meeting strWhereClause (all when empty).";
    case MemberRole::Add:
      return "Inserts the columns that hold a value as a new " + t + " row; True on success.";
    case MemberRole::Update:
      return "Writes every column to the " + t +
             " row that the key properties name; True on "
             "success.";
    case MemberRole::Delete:
      return "Deletes the " + t +
             " row that the key properties name (False when there is none), or with "
             "strWhereClause every row meeting it; True on success.";
    case MemberRole::GetParentIn:
      return "A new " + other() + " object holding the " + other() +
             " row that this object's link column names; nothing (None) when there is none.";
    case MemberRole::GetChildrenIn:
      return "The " + other() + " rows that carry this object's key" + walk +
             ", as a Collection of new " + other() + " objects.";
    case MemberRole::CountChildrenIn:
      return "The number of " + other() + " rows that carry this object's key.";
    case MemberRole::GetDerivedChildrenIn:
      return "The " + other() + " rows linked to this object through " +
             std::string(table.relations[member.index].through) + ", as a Collection of new " +
             other() + " objects.";
    case MemberRole::CountDerivedChildrenIn:
      return "The number of " + other() + " rows linked to this object through " +
             std::string(table.relations[member.index].through) + ".";
  }
  return "";
}

}  // namespace varnock::catalogue
