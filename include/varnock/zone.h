// SPDX-License-Identifier: MIT
// Zone: a record object over one row of the register's Zone table: its
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

class Zone final : public Record {
 public:
  Zone() : Record("Zone") {}

  // Zone: nvarchar, Null refused.
  Variant get_Zone() const;
  void put_Zone(const Variant& value);

  // Test: bit, Null refused.
  Variant get_Test() const;
  void put_Test(const Variant& value);

  bool GetZone(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstZone(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastZone(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastZone(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetNextZone(std::int32_t lngOffset, std::string_view strWhereClause = {},
                   std::string_view strOrderClause = {});
  bool GetPreviousZone(std::int32_t lngOffset, std::string_view strWhereClause = {},
                       std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryZone(std::string_view strWhereClause = {},
                                           std::string_view strOrderClause = {},
                                           const Variant& lngOffset = Variant(1),
                                           const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryZone(std::string_view strWhereClause = {});
  bool AddZone();
  bool UpdateZone();
  bool DeleteZone(std::string_view strWhereClause = {});
  std::shared_ptr<Collection> GetChildrenInZoneAddress(std::string_view strWhereClause = {},
                                                       std::string_view strOrderClause = {});
  std::int32_t CountChildrenInZoneAddress();
  std::shared_ptr<Collection> GetChildrenInZonePool(std::string_view strWhereClause = {},
                                                    std::string_view strOrderClause = {});
  std::int32_t CountChildrenInZonePool();
  std::shared_ptr<Collection> GetDerivedChildrenInUser(std::string_view strWhereClause = {},
                                                       std::string_view strOrderClause = {});
  std::int32_t CountDerivedChildrenInUser(std::string_view strWhereClause = {},
                                          std::string_view strOrderClause = {});
};

}  // namespace varnock
VARNOCK_PUBLIC_END
