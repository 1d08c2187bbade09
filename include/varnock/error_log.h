// SPDX-License-Identifier: MIT
// ErrorLog: a record object over one row of the register's ErrorLog table: its
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

class ErrorLog final : public Record {
 public:
  ErrorLog() : Record("ErrorLog") {}

  // DateCreated: smalldatetime, Null refused.
  Variant get_DateCreated() const;
  void put_DateCreated(const Variant& value);

  // UserId: nvarchar, Null refused.
  Variant get_UserId() const;
  void put_UserId(const Variant& value);

  // ErrorNumber: int, Null refused.
  Variant get_ErrorNumber() const;
  void put_ErrorNumber(const Variant& value);

  // ErrorDescription: nvarchar, Null refused.
  Variant get_ErrorDescription() const;
  void put_ErrorDescription(const Variant& value);

  // Message: nvarchar, Null allowed.
  Variant get_Message() const;
  void put_Message(const Variant& value);

  bool GetErrorLog(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstErrorLog(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastErrorLog(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastErrorLog(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetNextErrorLog(std::int32_t lngOffset, std::string_view strWhereClause = {},
                       std::string_view strOrderClause = {});
  bool GetPreviousErrorLog(std::int32_t lngOffset, std::string_view strWhereClause = {},
                           std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryErrorLog(std::string_view strWhereClause = {},
                                               std::string_view strOrderClause = {},
                                               const Variant& lngOffset = Variant(1),
                                               const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryErrorLog(std::string_view strWhereClause = {});
  bool AddErrorLog();
  bool UpdateErrorLog();
  bool DeleteErrorLog(std::string_view strWhereClause = {});
};

}  // namespace varnock
VARNOCK_PUBLIC_END
