// ErrorLog: a record object over one row of the register's ErrorLog table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/record.h"

namespace varnock {

class ErrorLog final : public Record {
 public:
  ErrorLog() : Record("ErrorLog") {}

  // DateCreated: smalldatetime, Null refused.
  Variant get_DateCreated() const { return column(0); }
  void put_DateCreated(const Variant& value) { assign(0, value); }

  // UserId: nvarchar, Null refused.
  Variant get_UserId() const { return column(1); }
  void put_UserId(const Variant& value) { assign(1, value); }

  // ErrorNumber: int, Null refused.
  Variant get_ErrorNumber() const { return column(2); }
  void put_ErrorNumber(const Variant& value) { assign(2, value); }

  // ErrorDescription: nvarchar, Null refused.
  Variant get_ErrorDescription() const { return column(3); }
  void put_ErrorDescription(const Variant& value) { assign(3, value); }

  // Message: nvarchar, Null allowed.
  Variant get_Message() const { return column(4); }
  void put_Message(const Variant& value) { assign(4, value); }

  bool GetErrorLog(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstErrorLog(std::string_view strWhereClause = {},
                        std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastErrorLog(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastErrorLog(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextErrorLog(std::int32_t lngOffset, std::string_view strWhereClause = {},
                       std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousErrorLog(std::int32_t lngOffset, std::string_view strWhereClause = {},
                           std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryErrorLog(std::string_view strWhereClause = {},
                                               std::string_view strOrderClause = {},
                                               const Variant& lngOffset = Variant(1),
                                               const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryErrorLog(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddErrorLog() { return insertRow(); }
  bool UpdateErrorLog() { return updateRow(); }
  bool DeleteErrorLog(std::string_view strWhereClause = {}) { return deleteRows(strWhereClause); }
};

}  // namespace varnock
