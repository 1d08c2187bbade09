// SPDX-License-Identifier: MIT
// LogFile: a record object over one row of the register's LogFile table: its
// column properties and its data methods, in interface order. Generated
// from the table catalogue by tools/generate_classes.cpp; change the catalogue
// or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/collection.h"
#include "varnock/export.h"
#include "varnock/record.h"
#include "varnock/variant.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

class LogFile final : public Record {
 public:
  LogFile() : Record("LogFile") {}

  // ProgramName: nvarchar, Null refused.
  Variant get_ProgramName() const;
  void put_ProgramName(const Variant& value);

  // LogDate: smalldatetime, Null refused.
  Variant get_LogDate() const;
  void put_LogDate(const Variant& value);

  // Username: nvarchar, Null allowed.
  Variant get_Username() const;
  void put_Username(const Variant& value);

  // Message: nvarchar, Null refused.
  Variant get_Message() const;
  void put_Message(const Variant& value);

  bool GetLogFile(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstLogFile(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastLogFile(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastLogFile(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetNextLogFile(std::int32_t lngOffset, std::string_view strWhereClause = {},
                      std::string_view strOrderClause = {});
  bool GetPreviousLogFile(std::int32_t lngOffset, std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryLogFile(std::string_view strWhereClause = {},
                                              std::string_view strOrderClause = {},
                                              const Variant& lngOffset = Variant(1),
                                              const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryLogFile(std::string_view strWhereClause = {});
  bool AddLogFile();
  bool UpdateLogFile();
  bool DeleteLogFile(std::string_view strWhereClause = {});
};

}  // namespace varnock
VARNOCK_PUBLIC_END
