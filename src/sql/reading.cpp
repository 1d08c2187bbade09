// The reading operations: keyed lookup, navigation, enumeration and counting,
// once for every class.
#include <functional>
#include <memory>

#include "catalogue/catalogue.h"
#include "record/new_record.h"
#include "record/record_state.h"
#include "sql/frame.h"
#include "sql/literals.h"
#include "sql/statements.h"
#include "varnock/conversions.h"
#include "varnock/record.h"

namespace varnock {

namespace {

// Key values go into the key form as their ordinary text, unescaped; Null as nothing.
std::vector<std::string> keyTexts(const Record& record) {
  std::vector<std::string> texts;
  for (const std::uint8_t position : record.table().keyColumns) {
    texts.push_back(sql::textOf(record.column(position)));
  }
  return texts;
}

// Runs a statement that loads at most one row; true if one was loaded.
bool loadOne(Record& record, std::string_view verb, const std::function<std::string()>& build) {
  return sql::framed(record, verb, false, [&](sql::Session& session) {
    client::Recordset& rows = session.execute(build());
    if (rows.eof()) return false;
    sql::copyRow(record, rows);
    return true;
  });
}

}  // namespace

bool Record::lookUp(std::string_view where, std::string_view order) {
  return loadOne(*this, "Get", [&] {
    std::string statement = where.empty() ? sql::keyLookup(*table_, keyTexts(*this))
                                          : sql::conditionLookup(*table_, where);
    sql::appendOrder(statement, order);
    return statement;
  });
}

bool Record::loadFirst(std::string_view where, std::string_view order) {
  return loadOne(*this, "GetFirst", [&] { return sql::first(*table_, where, order); });
}

bool Record::loadLast(std::string_view where, std::string& order) {
  order = sql::reversedOrder(*table_, order);
  return loadFirst(where, order);
}

bool Record::loadNext(std::int32_t offset, std::string_view where, std::string_view order) {
  return sql::framed(*this, "GetNext", false, [&](sql::Session& session) {
    if (offset < 1) return false;  // the connection is opened and closed all the same
    client::Recordset& rows =
        session.execute(sql::afterSkipping(*table_, std::to_string(offset), where, order));
    if (rows.eof()) return false;
    sql::copyRow(*this, rows);
    return true;
  });
}

bool Record::loadPrevious(std::int32_t offset, std::string_view where, std::string_view order) {
  return sql::framed(*this, "GetPrevious", false, [&](sql::Session& session) {
    if (offset <= 1) return false;
    // Row 1 cannot be reached by skipping no rows: it is the first row.
    if (offset == 2) return loadFirst(where, order);
    client::Recordset& rows =
        session.execute(sql::afterSkipping(*table_, std::to_string(offset - 2), where, order));
    if (rows.eof()) return false;
    sql::copyRow(*this, rows);
    return true;
  });
}

std::shared_ptr<Collection> Record::listEvery(std::string_view where, std::string_view order,
                                              const Variant& offset, const Variant& numRecords) {
  return sql::framed(*this, "GetEvery", std::make_shared<Collection>(), [&](sql::Session& session) {
    const std::string limit = toNumber(numRecords) > 0 ? toText(numRecords) : std::string();
    const std::string skipped = toNumber(offset) > 1 ? toText(offset) : std::string();
    client::Recordset& rows = session.execute(sql::every(*table_, limit, skipped, where, order));
    auto collection = std::make_shared<Collection>();
    for (; !rows.eof(); rows.moveNext()) {
      std::shared_ptr<Record> item = newRecord(table_->name);
      RecordState::shareConnectionString(*item, *this);
      sql::copyRow(*item, rows);
      collection->Add(Variant(std::move(item)));
    }
    return collection;
  });
}

std::int32_t Record::countEvery(std::string_view where) {
  // No error path: failures reach the caller as they are.
  std::string statement;
  sql::Session session(*this, statement);
  client::Recordset& rows = session.execute(sql::count(*table_, where));
  const std::int32_t counted = toLong(rows.field("CountResultField"));
  session.close();
  return counted;
}

}  // namespace varnock
