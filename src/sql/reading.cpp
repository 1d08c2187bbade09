// SPDX-License-Identifier: MIT
// The reading operations: keyed lookup, navigation, enumeration and counting,
// once for every class.
#include <functional>
#include <memory>

#include "catalogue/catalogue.h"
#include "record/record_internal.h"
#include "sql/frame.h"
#include "sql/literals.h"
#include "sql/operations.h"
#include "sql/statements.h"
#include "varnock/conversions.h"

namespace varnock::sql {

namespace {

const catalogue::Table& tableOf(const Record& record) {
  return RecordInternal::table(record);
}

// Key values go into the key form as their ordinary text, unescaped; Null as nothing.
std::vector<std::string> keyTexts(const Record& record) {
  std::vector<std::string> texts;
  for (const std::uint8_t position : tableOf(record).keyColumns) {
    texts.push_back(textOf(RecordInternal::column(record, position)));
  }
  return texts;
}

// Runs a statement that loads at most one row; true if one was loaded.
bool loadOne(Record& record, std::string_view verb, const std::function<std::string()>& build) {
  return framed(record, verb, false, [&](Session& session) {
    client::Recordset& rows = session.execute(build());
    if (rows.eof()) return false;
    copyRow(record, rows);
    return true;
  });
}

}  // namespace

bool lookUp(Record& record, std::string_view where, std::string_view order) {
  return loadOne(record, "Get", [&] {
    const catalogue::Table& table = tableOf(record);
    std::string statement =
        where.empty() ? keyLookup(table, keyTexts(record)) : conditionLookup(table, where);
    appendOrder(statement, order);
    return statement;
  });
}

bool loadFirst(Record& record, std::string_view where, std::string_view order) {
  return loadOne(record, "GetFirst", [&] { return first(tableOf(record), where, order); });
}

bool loadLast(Record& record, std::string_view where, std::string& order) {
  order = reversedOrder(tableOf(record), order);
  return loadFirst(record, where, order);
}

bool loadNext(Record& record, std::int32_t offset, std::string_view where, std::string_view order) {
  return framed(record, "GetNext", false, [&](Session& session) {
    if (offset < 1) return false;  // the connection is opened and closed all the same
    client::Recordset& rows =
        session.execute(afterSkipping(tableOf(record), std::to_string(offset), where, order));
    if (rows.eof()) return false;
    copyRow(record, rows);
    return true;
  });
}

bool loadPrevious(Record& record, std::int32_t offset, std::string_view where,
                  std::string_view order) {
  return framed(record, "GetPrevious", false, [&](Session& session) {
    if (offset <= 1) return false;
    // Row 1 cannot be reached by skipping no rows: it is the first row.
    if (offset == 2) return loadFirst(record, where, order);
    client::Recordset& rows =
        session.execute(afterSkipping(tableOf(record), std::to_string(offset - 2), where, order));
    if (rows.eof()) return false;
    copyRow(record, rows);
    return true;
  });
}

std::shared_ptr<Collection> listEvery(Record& record, std::string_view where,
                                      std::string_view order, const Variant& offset,
                                      const Variant& numRecords) {
  return framed(record, "GetEvery", std::make_shared<Collection>(), [&](Session& session) {
    const std::string limit = toNumber(numRecords) > 0 ? toText(numRecords) : std::string();
    const std::string skipped = toNumber(offset) > 1 ? toText(offset) : std::string();
    const catalogue::Table& table = tableOf(record);
    client::Recordset& rows = session.execute(every(table, limit, skipped, where, order));
    return collectRows(record, table.name, rows);
  });
}

std::int32_t countEvery(Record& record, std::string_view where) {
  // No error path: failures reach the caller as they are.
  std::string statement;
  Session session(record, statement);
  client::Recordset& rows = session.execute(count(tableOf(record), where));
  const std::int32_t counted = toLong(rows.field("CountResultField"));
  session.close();
  return counted;
}

}  // namespace varnock::sql
