// SPDX-License-Identifier: MIT
// The data methods of every record class, once for all of them: keyed
// lookup, navigation, enumeration, counting, insert, update and delete. The
// generated classes and the object host call them under each class's own
// names (GetUser, GetFirstUser, ... DeleteUser).
//
// Conditions are SQL without WHERE, orders SQL without ORDER BY; empty means
// none. Failures take the error path: the method returns false (or an empty
// collection), stores the description as the last error message and writes
// one event under the class's method name; only a failed event log write
// raises. countEvery has no error path and raises its failures.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/collection.h"
#include "varnock/record.h"
#include "varnock/variant.h"

namespace varnock::sql {

bool lookUp(Record& record, std::string_view where, std::string_view order);
bool loadFirst(Record& record, std::string_view where, std::string_view order);
// Reverses `order` in place (the caller sees the order used), then loads the first row.
bool loadLast(Record& record, std::string_view where, std::string& order);
bool loadNext(Record& record, std::int32_t offset, std::string_view where, std::string_view order);
bool loadPrevious(Record& record, std::int32_t offset, std::string_view where,
                  std::string_view order);
std::shared_ptr<Collection> listEvery(Record& record, std::string_view where,
                                      std::string_view order, const Variant& offset,
                                      const Variant& numRecords);
std::int32_t countEvery(Record& record, std::string_view where);

// Writing: true on success. deleteRows with an empty condition first looks
// the row up by its key (reloading the object) and deletes nothing when there
// is none; with a condition it deletes what matches.
bool insertRow(Record& record);
bool updateRow(Record& record);
bool deleteRows(Record& record, std::string_view where);

}  // namespace varnock::sql
