// State: a record object over one row of the register's State table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/record.h"

namespace varnock {

class State final : public Record {
 public:
  State() : Record("State") {}

  // State: nvarchar, Null refused.
  Variant get_State() const { return column(0); }
  void put_State(const Variant& value) { assign(0, value); }

  bool GetState(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstState(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastState(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastState(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextState(std::int32_t lngOffset, std::string_view strWhereClause = {},
                    std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousState(std::int32_t lngOffset, std::string_view strWhereClause = {},
                        std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryState(std::string_view strWhereClause = {},
                                            std::string_view strOrderClause = {},
                                            const Variant& lngOffset = Variant(1),
                                            const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryState(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddState() { return insertRow(); }
  bool UpdateState() { return updateRow(); }
  bool DeleteState(std::string_view strWhereClause = {}) { return deleteRows(strWhereClause); }
};

}  // namespace varnock
