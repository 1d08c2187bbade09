// SPDX-License-Identifier: MIT
// ZonePool: a record object over one row of the register's ZonePool table: its
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
#include "varnock/zone.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

class ZonePool final : public Record {
 public:
  ZonePool() : Record("ZonePool") {}

  // Zone: nvarchar, Null refused.
  Variant get_Zone() const;
  void put_Zone(const Variant& value);

  // Address: int, Null refused.
  Variant get_Address() const;
  void put_Address(const Variant& value);

  bool GetZonePool(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstZonePool(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastZonePool(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastZonePool(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetNextZonePool(std::int32_t lngOffset, std::string_view strWhereClause = {},
                       std::string_view strOrderClause = {});
  bool GetPreviousZonePool(std::int32_t lngOffset, std::string_view strWhereClause = {},
                           std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryZonePool(std::string_view strWhereClause = {},
                                               std::string_view strOrderClause = {},
                                               const Variant& lngOffset = Variant(1),
                                               const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryZonePool(std::string_view strWhereClause = {});
  bool AddZonePool();
  bool UpdateZonePool();
  bool DeleteZonePool(std::string_view strWhereClause = {});
  std::shared_ptr<Zone> GetParentInZone();
};

}  // namespace varnock
VARNOCK_PUBLIC_END
