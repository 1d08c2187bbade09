// The writing operations, once for every class.
#include <functional>

#include "sql/frame.h"
#include "sql/statements.h"
#include "varnock/record.h"

namespace varnock {

namespace {

// Runs one writing statement built from the record in the frame; the
// statement is built inside the frame so that its failures take the error path.
bool write(Record& record, std::string_view verb, const std::function<std::string()>& build) {
  return sql::framed(record, verb, false, [&](sql::Session& session) {
    session.execute(build());
    return true;
  });
}

}  // namespace

bool Record::insertRow() {
  return write(*this, "Add", [&] { return sql::insert(*table_, values_); });
}

bool Record::updateRow() {
  return write(*this, "Update", [&] { return sql::update(*table_, values_); });
}

bool Record::deleteRows(std::string_view where) {
  return sql::framed(*this, "Delete", false, [&](sql::Session& session) {
    if (where.empty()) {
      if (!lookUp({}, {})) return false;  // no such row: nothing is sent
      session.execute(sql::deleteByKey(*table_, values_));
    } else {
      session.execute(sql::deleteWhere(*table_, where));
    }
    return true;
  });
}

}  // namespace varnock
