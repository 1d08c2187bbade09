// Parent lookup, children and derived children: one implementation per kind
// of relation, driven by the catalogue's relations.
#include <memory>

#include "catalogue/catalogue.h"
#include "eventLog/event_log.h"
#include "record/new_record.h"
#include "record/record_state.h"
#include "relations/relation_statements.h"
#include "sql/frame.h"
#include "sql/literals.h"
#include "varnock/conversions.h"
#include "varnock/record.h"

namespace varnock {

namespace {

const catalogue::Relation& relationOf(const Record& record, std::size_t position) {
  const auto& relations = record.table().relations;
  if (position >= relations.size()) {
    throw AutomationError::runtime(AutomationError::kInvalidProcedureCall);
  }
  return relations[position];
}

// The value of the record's own column in the join, as text, unescaped.
std::string ownKeyText(const Record& record, const catalogue::Relation& relation) {
  const auto& columns = record.table().columns;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].field == relation.joinField) return sql::textOf(record.column(i));
  }
  return {};
}

// A new object of the related class that works on the same register.
std::shared_ptr<Record> relatedObject(const Record& record, std::string_view table) {
  std::shared_ptr<Record> related = newRecord(table);
  RecordState::shareConnectionString(*related, record);
  return related;
}

// The children methods hold no statement of their own: their failures are
// reported with the description and its source only.
template <class Result, class Body>
Result trapped(Record& record, const std::string& methodName, Result failureValue, Body&& body) {
  try {
    return body();
  } catch (const std::exception& failure) {
    const AutomationError e = sql::asAutomationError(failure);
    RecordState::setLastErrorMessage(record, e.description());
    eventLog::ReportDataError(e.number(), methodName, e.description() + " [" + e.source() + "]");
    return failureValue;
  }
}

std::shared_ptr<Collection> readAll(const Record& record, std::string_view table,
                                    client::Recordset& rows) {
  auto collection = std::make_shared<Collection>();
  for (; !rows.eof(); rows.moveNext()) {
    std::shared_ptr<Record> item = relatedObject(record, table);
    sql::copyRow(*item, rows);
    collection->Add(Variant(std::move(item)));
  }
  return collection;
}

}  // namespace

std::shared_ptr<Record> Record::parentIn(std::size_t position) {
  const catalogue::Relation& r = relationOf(*this, position);
  return sql::framedAs(*this, "GetParentIn" + std::string(r.other), std::shared_ptr<Record>(),
                       [&](sql::Session& session) {
                         client::Recordset& rows =
                             session.execute(relations::parentLookup(r, ownKeyText(*this, r)));
                         // No end test: a missing parent fails on its first field.
                         std::shared_ptr<Record> parent = relatedObject(*this, r.other);
                         sql::copyRow(*parent, rows);
                         return parent;
                       });
}

std::shared_ptr<Collection> Record::childrenIn(std::size_t position, std::string_view where,
                                               std::string_view order) {
  const catalogue::Relation& r = relationOf(*this, position);
  return trapped(*this, "GetChildrenIn" + std::string(r.other), std::shared_ptr<Collection>(), [&] {
    const auto child = relatedObject(*this, r.other);
    return child->listEvery(relations::childFilter(r, ownKeyText(*this, r), where), order,
                            Variant(1), Variant(0));
  });
}

std::int32_t Record::countChildrenIn(std::size_t position) {
  const catalogue::Relation& r = relationOf(*this, position);
  return trapped(*this, "CountChildrenIn" + std::string(r.other), std::int32_t{0}, [&] {
    const auto child = relatedObject(*this, r.other);
    return child->countEvery(relations::childFilter(r, ownKeyText(*this, r), {}));
  });
}

std::shared_ptr<Collection> Record::derivedChildrenIn(std::size_t position, std::string_view where,
                                                      std::string_view order) {
  const catalogue::Relation& r = relationOf(*this, position);
  return sql::framedAs(*this, "GetDerivedChildrenIn" + std::string(r.other),
                       std::shared_ptr<Collection>(), [&](sql::Session& session) {
                         client::Recordset& rows = session.execute(relations::derivedChildren(
                             *table_, r, false, ownKeyText(*this, r), where, order));
                         return readAll(*this, r.other, rows);
                       });
}

std::int32_t Record::countDerivedChildrenIn(std::size_t position, std::string_view where,
                                            std::string_view order) {
  const catalogue::Relation& r = relationOf(*this, position);
  return sql::framedAs(*this, "CountDerivedChildrenIn" + std::string(r.other), std::int32_t{0},
                       [&](sql::Session& session) {
                         client::Recordset& rows = session.execute(relations::derivedChildren(
                             *table_, r, true, ownKeyText(*this, r), where, order));
                         return toLong(rows.field("CountResultField"));
                       });
}

}  // namespace varnock
