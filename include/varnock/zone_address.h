// ZoneAddress: a record object over one row of the register's ZoneAddress table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/record.h"
#include "varnock/user.h"
#include "varnock/zone.h"

namespace varnock {

class ZoneAddress final : public Record {
 public:
  ZoneAddress() : Record("ZoneAddress") {}

  // Zone: nvarchar, Null refused.
  Variant get_Zone() const { return column(0); }
  void put_Zone(const Variant& value) { assign(0, value); }

  // UserName: nvarchar, Null refused.
  Variant get_Username() const { return column(1); }
  void put_Username(const Variant& value) { assign(1, value); }

  // Address: int, Null refused.
  Variant get_Address() const { return column(2); }
  void put_Address(const Variant& value) { assign(2, value); }

  // CreationDate: smalldatetime, Null refused.
  Variant get_CreationDate() const { return column(3); }
  void put_CreationDate(const Variant& value) { assign(3, value); }

  bool GetZoneAddress(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstZoneAddress(std::string_view strWhereClause = {},
                           std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastZoneAddress(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastZoneAddress(std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextZoneAddress(std::int32_t lngOffset, std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousZoneAddress(std::int32_t lngOffset, std::string_view strWhereClause = {},
                              std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryZoneAddress(std::string_view strWhereClause = {},
                                                  std::string_view strOrderClause = {},
                                                  const Variant& lngOffset = Variant(1),
                                                  const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryZoneAddress(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddZoneAddress() { return insertRow(); }
  bool UpdateZoneAddress() { return updateRow(); }
  bool DeleteZoneAddress(std::string_view strWhereClause = {}) {
    return deleteRows(strWhereClause);
  }
  std::shared_ptr<User> GetParentInUser() { return std::static_pointer_cast<User>(parentIn(0)); }
  std::shared_ptr<Zone> GetParentInZone() { return std::static_pointer_cast<Zone>(parentIn(1)); }
};

}  // namespace varnock
