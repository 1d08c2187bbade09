// LogFile: a record object over one row of the register's LogFile table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/record.h"

namespace varnock {

class LogFile final : public Record {
 public:
  LogFile() : Record("LogFile") {}

  // ProgramName: nvarchar, Null refused.
  Variant get_ProgramName() const { return column(0); }
  void put_ProgramName(const Variant& value) { assign(0, value); }

  // LogDate: smalldatetime, Null refused.
  Variant get_LogDate() const { return column(1); }
  void put_LogDate(const Variant& value) { assign(1, value); }

  // Username: nvarchar, Null allowed.
  Variant get_Username() const { return column(2); }
  void put_Username(const Variant& value) { assign(2, value); }

  // Message: nvarchar, Null refused.
  Variant get_Message() const { return column(3); }
  void put_Message(const Variant& value) { assign(3, value); }

  bool GetLogFile(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstLogFile(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastLogFile(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastLogFile(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextLogFile(std::int32_t lngOffset, std::string_view strWhereClause = {},
                      std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousLogFile(std::int32_t lngOffset, std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryLogFile(std::string_view strWhereClause = {},
                                              std::string_view strOrderClause = {},
                                              const Variant& lngOffset = Variant(1),
                                              const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryLogFile(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddLogFile() { return insertRow(); }
  bool UpdateLogFile() { return updateRow(); }
  bool DeleteLogFile(std::string_view strWhereClause = {}) { return deleteRows(strWhereClause); }
};

}  // namespace varnock
