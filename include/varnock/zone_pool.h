// ZonePool: a record object over one row of the register's ZonePool table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/record.h"
#include "varnock/zone.h"

namespace varnock {

class ZonePool final : public Record {
 public:
  ZonePool() : Record("ZonePool") {}

  // Zone: nvarchar, Null refused.
  Variant get_Zone() const { return column(0); }
  void put_Zone(const Variant& value) { assign(0, value); }

  // Address: int, Null refused.
  Variant get_Address() const { return column(1); }
  void put_Address(const Variant& value) { assign(1, value); }

  bool GetZonePool(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstZonePool(std::string_view strWhereClause = {},
                        std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastZonePool(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastZonePool(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextZonePool(std::int32_t lngOffset, std::string_view strWhereClause = {},
                       std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousZonePool(std::int32_t lngOffset, std::string_view strWhereClause = {},
                           std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryZonePool(std::string_view strWhereClause = {},
                                               std::string_view strOrderClause = {},
                                               const Variant& lngOffset = Variant(1),
                                               const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryZonePool(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddZonePool() { return insertRow(); }
  bool UpdateZonePool() { return updateRow(); }
  bool DeleteZonePool(std::string_view strWhereClause = {}) { return deleteRows(strWhereClause); }
  std::shared_ptr<Zone> GetParentInZone() { return std::static_pointer_cast<Zone>(parentIn(0)); }
};

}  // namespace varnock
