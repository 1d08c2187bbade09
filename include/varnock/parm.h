// Parm: a record object over one row of the register's Parm table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/record.h"

namespace varnock {

class Parm final : public Record {
 public:
  Parm() : Record("Parm") {}

  // Section: nvarchar, Null refused.
  Variant get_Section() const { return column(0); }
  void put_Section(const Variant& value) { assign(0, value); }

  // KeyName: nvarchar, Null refused.
  Variant get_KeyName() const { return column(1); }
  void put_KeyName(const Variant& value) { assign(1, value); }

  // Value: nvarchar, Null allowed.
  Variant get_Value() const { return column(2); }
  void put_Value(const Variant& value) { assign(2, value); }

  // Comment: ntext, Null allowed.
  Variant get_Comment() const { return column(3); }
  void put_Comment(const Variant& value) { assign(3, value); }

  // Locked: bit, Null refused.
  Variant get_Locked() const { return column(4); }
  void put_Locked(const Variant& value) { assign(4, value); }

  bool GetParm(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstParm(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastParm(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastParm(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextParm(std::int32_t lngOffset, std::string_view strWhereClause = {},
                   std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousParm(std::int32_t lngOffset, std::string_view strWhereClause = {},
                       std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryParm(std::string_view strWhereClause = {},
                                           std::string_view strOrderClause = {},
                                           const Variant& lngOffset = Variant(1),
                                           const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryParm(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddParm() { return insertRow(); }
  bool UpdateParm() { return updateRow(); }
  bool DeleteParm(std::string_view strWhereClause = {}) { return deleteRows(strWhereClause); }
};

}  // namespace varnock
