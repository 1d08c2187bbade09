// Zone: a record object over one row of the register's Zone table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/record.h"

namespace varnock {

class Zone final : public Record {
 public:
  Zone() : Record("Zone") {}

  // Zone: nvarchar, Null refused.
  Variant get_Zone() const { return column(0); }
  void put_Zone(const Variant& value) { assign(0, value); }

  // Test: bit, Null refused.
  Variant get_Test() const { return column(1); }
  void put_Test(const Variant& value) { assign(1, value); }

  bool GetZone(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstZone(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastZone(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastZone(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextZone(std::int32_t lngOffset, std::string_view strWhereClause = {},
                   std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousZone(std::int32_t lngOffset, std::string_view strWhereClause = {},
                       std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryZone(std::string_view strWhereClause = {},
                                           std::string_view strOrderClause = {},
                                           const Variant& lngOffset = Variant(1),
                                           const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryZone(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddZone() { return insertRow(); }
  bool UpdateZone() { return updateRow(); }
  bool DeleteZone(std::string_view strWhereClause = {}) { return deleteRows(strWhereClause); }
  std::shared_ptr<Collection> GetChildrenInZoneAddress(std::string_view strWhereClause = {},
                                                       std::string_view strOrderClause = {}) {
    return childrenIn(0, strWhereClause, strOrderClause);
  }
  std::int32_t CountChildrenInZoneAddress() { return countChildrenIn(0); }
  std::shared_ptr<Collection> GetChildrenInZonePool(std::string_view strWhereClause = {},
                                                    std::string_view strOrderClause = {}) {
    return childrenIn(1, strWhereClause, strOrderClause);
  }
  std::int32_t CountChildrenInZonePool() { return countChildrenIn(1); }
  std::shared_ptr<Collection> GetDerivedChildrenInUser(std::string_view strWhereClause = {},
                                                       std::string_view strOrderClause = {}) {
    return derivedChildrenIn(2, strWhereClause, strOrderClause);
  }
  std::int32_t CountDerivedChildrenInUser(std::string_view strWhereClause = {},
                                          std::string_view strOrderClause = {}) {
    return countDerivedChildrenIn(2, strWhereClause, strOrderClause);
  }
};

}  // namespace varnock
