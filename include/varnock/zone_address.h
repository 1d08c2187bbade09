// SPDX-License-Identifier: MIT
// ZoneAddress: a record object over one row of the register's ZoneAddress table: its
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
#include "varnock/user.h"
#include "varnock/variant.h"
#include "varnock/zone.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

class ZoneAddress final : public Record {
 public:
  ZoneAddress() : Record("ZoneAddress") {}

  // Zone: nvarchar, Null refused.
  Variant get_Zone() const;
  void put_Zone(const Variant& value);

  // UserName: nvarchar, Null refused.
  Variant get_Username() const;
  void put_Username(const Variant& value);

  // Address: int, Null refused.
  Variant get_Address() const;
  void put_Address(const Variant& value);

  // CreationDate: smalldatetime, Null refused.
  Variant get_CreationDate() const;
  void put_CreationDate(const Variant& value);

  bool GetZoneAddress(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstZoneAddress(std::string_view strWhereClause = {},
                           std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastZoneAddress(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastZoneAddress(std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {});
  bool GetNextZoneAddress(std::int32_t lngOffset, std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {});
  bool GetPreviousZoneAddress(std::int32_t lngOffset, std::string_view strWhereClause = {},
                              std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryZoneAddress(std::string_view strWhereClause = {},
                                                  std::string_view strOrderClause = {},
                                                  const Variant& lngOffset = Variant(1),
                                                  const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryZoneAddress(std::string_view strWhereClause = {});
  bool AddZoneAddress();
  bool UpdateZoneAddress();
  bool DeleteZoneAddress(std::string_view strWhereClause = {});
  std::shared_ptr<User> GetParentInUser();
  std::shared_ptr<Zone> GetParentInZone();
};

}  // namespace varnock
VARNOCK_PUBLIC_END
