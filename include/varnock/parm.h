// SPDX-License-Identifier: MIT
// Parm: a record object over one row of the register's Parm table: its
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

class Parm final : public Record {
 public:
  Parm() : Record("Parm") {}

  // Section: nvarchar, Null refused.
  Variant get_Section() const;
  void put_Section(const Variant& value);

  // KeyName: nvarchar, Null refused.
  Variant get_KeyName() const;
  void put_KeyName(const Variant& value);

  // Value: nvarchar, Null allowed.
  Variant get_Value() const;
  void put_Value(const Variant& value);

  // Comment: ntext, Null allowed.
  Variant get_Comment() const;
  void put_Comment(const Variant& value);

  // Locked: bit, Null refused.
  Variant get_Locked() const;
  void put_Locked(const Variant& value);

  bool GetParm(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstParm(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastParm(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastParm(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetNextParm(std::int32_t lngOffset, std::string_view strWhereClause = {},
                   std::string_view strOrderClause = {});
  bool GetPreviousParm(std::int32_t lngOffset, std::string_view strWhereClause = {},
                       std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryParm(std::string_view strWhereClause = {},
                                           std::string_view strOrderClause = {},
                                           const Variant& lngOffset = Variant(1),
                                           const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryParm(std::string_view strWhereClause = {});
  bool AddParm();
  bool UpdateParm();
  bool DeleteParm(std::string_view strWhereClause = {});
};

}  // namespace varnock
VARNOCK_PUBLIC_END
