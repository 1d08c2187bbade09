// SPDX-License-Identifier: MIT
// The writing operations, once for every class.
#include <functional>

#include "record/record_internal.h"
#include "sql/frame.h"
#include "sql/operations.h"
#include "sql/statements.h"

namespace varnock::sql {

namespace {

// Runs one writing statement built from the record in the frame; the
// statement is built inside the frame so that its failures take the error path.
bool write(Record& record, std::string_view verb, const std::function<std::string()>& build) {
  return framed(record, verb, false, [&](Session& session) {
    session.execute(build());
    return true;
  });
}

}  // namespace

bool insertRow(Record& record) {
  return write(record, "Add", [&] {
    return insert(RecordInternal::table(record), RecordInternal::values(record));
  });
}

bool updateRow(Record& record) {
  return write(record, "Update", [&] {
    return update(RecordInternal::table(record), RecordInternal::values(record));
  });
}

bool deleteRows(Record& record, std::string_view where) {
  return framed(record, "Delete", false, [&](Session& session) {
    const catalogue::Table& table = RecordInternal::table(record);
    if (where.empty()) {
      if (!lookUp(record, {}, {})) return false;  // no such row: nothing is sent
      session.execute(deleteByKey(table, RecordInternal::values(record)));
    } else {
      session.execute(deleteWhere(table, where));
    }
    return true;
  });
}

}  // namespace varnock::sql
