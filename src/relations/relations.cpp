// SPDX-License-Identifier: MIT
// Parent lookup, children and derived children: one implementation per kind
// of relation, driven by the catalogue's relations.
#include <memory>

#include "catalogue/catalogue.h"
#include "record/failure_report.h"
#include "record/new_record.h"
#include "record/record_internal.h"
#include "relations/operations.h"
#include "relations/relation_statements.h"
#include "sql/frame.h"
#include "sql/literals.h"
#include "sql/operations.h"
#include "varnock/conversions.h"

namespace varnock::relations {

namespace {

const catalogue::Relation& relationOf(const Record& record, std::size_t position) {
  const auto& relations = RecordInternal::table(record).relations;
  if (position >= relations.size()) {
    throw AutomationError::runtime(AutomationError::kInvalidProcedureCall);
  }
  return relations[position];
}

// The value of the record's own column in the join, as text, unescaped.
std::string ownKeyText(const Record& record, const catalogue::Relation& relation) {
  const auto& columns = RecordInternal::table(record).columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].field == relation.joinField) {
      return sql::textOf(RecordInternal::column(record, i));
    }
  }
  return {};
}

// A new object of the related class that works on the same register.
std::shared_ptr<Record> relatedObject(const Record& record, std::string_view table) {
  std::shared_ptr<Record> related = newRecord(table);
  RecordInternal::shareConnectionString(*related, record);
  return related;
}

// The children methods hold no statement of their own: they hand the work to
// the child class's own enumeration, and report its failures without one.
template <class Result, class Body>
Result trapped(Record& record, const std::string& methodName, Result failureValue, Body&& body) {
  try {
    return body();
  } catch (const std::exception& failure) {
    reportFailure(record, methodName, asAutomationError(failure));
    return failureValue;
  }
}

}  // namespace

std::shared_ptr<Record> parentIn(Record& record, std::size_t position) {
  const catalogue::Relation& r = relationOf(record, position);
  return sql::framedAs(record, "GetParentIn" + std::string(r.other), std::shared_ptr<Record>(),
                       [&](sql::Session& session) {
                         client::Recordset& rows =
                             session.execute(parentLookup(r, ownKeyText(record, r)));
                         // No end test: a missing parent fails on its first field.
                         std::shared_ptr<Record> parent = relatedObject(record, r.other);
                         sql::copyRow(*parent, rows);
                         return parent;
                       });
}

std::shared_ptr<Collection> childrenIn(Record& record, std::size_t position, std::string_view where,
                                       std::string_view order) {
  const catalogue::Relation& r = relationOf(record, position);
  return trapped(record, "GetChildrenIn" + std::string(r.other), std::shared_ptr<Collection>(),
                 [&] {
                   const auto child = relatedObject(record, r.other);
                   return sql::listEvery(*child, childFilter(r, ownKeyText(record, r), where),
                                         order, Variant(1), Variant(0));
                 });
}

std::int32_t countChildrenIn(Record& record, std::size_t position) {
  const catalogue::Relation& r = relationOf(record, position);
  return trapped(record, "CountChildrenIn" + std::string(r.other), std::int32_t{0}, [&] {
    const auto child = relatedObject(record, r.other);
    return sql::countEvery(*child, childFilter(r, ownKeyText(record, r), {}));
  });
}

std::shared_ptr<Collection> derivedChildrenIn(Record& record, std::size_t position,
                                              std::string_view where, std::string_view order) {
  const catalogue::Relation& r = relationOf(record, position);
  return sql::framedAs(
      record, "GetDerivedChildrenIn" + std::string(r.other), std::shared_ptr<Collection>(),
      [&](sql::Session& session) {
        client::Recordset& rows = session.execute(derivedChildren(
            RecordInternal::table(record), r, false, ownKeyText(record, r), where, order));
        return sql::collectRows(record, r.other, rows);
      });
}

std::int32_t countDerivedChildrenIn(Record& record, std::size_t position, std::string_view where,
                                    std::string_view order) {
  const catalogue::Relation& r = relationOf(record, position);
  return sql::framedAs(record, "CountDerivedChildrenIn" + std::string(r.other), std::int32_t{0},
                       [&](sql::Session& session) {
                         client::Recordset& rows =
                             session.execute(derivedChildren(RecordInternal::table(record), r, true,
                                                             ownKeyText(record, r), where, order));
                         return toLong(rows.field("CountResultField"));
                       });
}

}  // namespace varnock::relations
