// User: a record object over one row of the register's User table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/record.h"

namespace varnock {

class User final : public Record {
 public:
  User() : Record("User") {}

  // UserName: nvarchar, Null refused.
  Variant get_Username() const { return column(0); }
  void put_Username(const Variant& value) { assign(0, value); }

  // SiteType: nvarchar, Null allowed.
  Variant get_SiteType() const { return column(1); }
  void put_SiteType(const Variant& value) { assign(1, value); }

  // Firstname: nvarchar, Null allowed.
  Variant get_Firstname() const { return column(2); }
  void put_Firstname(const Variant& value) { assign(2, value); }

  // Lastname: nvarchar, Null refused.
  Variant get_Lastname() const { return column(3); }
  void put_Lastname(const Variant& value) { assign(3, value); }

  // Country: nvarchar, Null refused.
  Variant get_Country() const { return column(4); }
  void put_Country(const Variant& value) { assign(4, value); }

  // State: nvarchar, Null allowed.
  Variant get_State() const { return column(5); }
  void put_State(const Variant& value) { assign(5, value); }

  // Password: nvarchar, Null refused.
  Variant get_Password() const { return column(6); }
  void put_Password(const Variant& value) { assign(6, value); }

  // Email: nvarchar, Null refused.
  Variant get_Email() const { return column(7); }
  void put_Email(const Variant& value) { assign(7, value); }

  // Pagetopic: nvarchar, Null allowed.
  Variant get_Pagetopic() const { return column(8); }
  void put_Pagetopic(const Variant& value) { assign(8, value); }

  // Bio: nvarchar, Null allowed.
  Variant get_Bio() const { return column(9); }
  void put_Bio(const Variant& value) { assign(9, value); }

  // Graphic: nvarchar, Null allowed.
  Variant get_Graphic() const { return column(10); }
  void put_Graphic(const Variant& value) { assign(10, value); }

  // Link: nvarchar, Null allowed.
  Variant get_Link() const { return column(11); }
  void put_Link(const Variant& value) { assign(11, value); }

  // DateCreated: smalldatetime, Null allowed.
  Variant get_DateCreated() const { return column(12); }
  void put_DateCreated(const Variant& value) { assign(12, value); }

  // Authorized: bit, Null refused.
  Variant get_Authorized() const { return column(13); }
  void put_Authorized(const Variant& value) { assign(13, value); }

  // AuthorisationDate: smalldatetime, Null allowed.
  Variant get_AuthorisationDate() const { return column(14); }
  void put_AuthorisationDate(const Variant& value) { assign(14, value); }

  // AuthorisationMessage: ntext, Null allowed.
  Variant get_AuthorisationMessage() const { return column(15); }
  void put_AuthorisationMessage(const Variant& value) { assign(15, value); }

  // REMOTE_ADDR: nvarchar, Null allowed.
  Variant get_REMOTE_ADDR() const { return column(16); }
  void put_REMOTE_ADDR(const Variant& value) { assign(16, value); }

  bool GetUser(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstUser(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastUser(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastUser(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextUser(std::int32_t lngOffset, std::string_view strWhereClause = {},
                   std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousUser(std::int32_t lngOffset, std::string_view strWhereClause = {},
                       std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryUser(std::string_view strWhereClause = {},
                                           std::string_view strOrderClause = {},
                                           const Variant& lngOffset = Variant(1),
                                           const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryUser(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddUser() { return insertRow(); }
  bool UpdateUser() { return updateRow(); }
  bool DeleteUser(std::string_view strWhereClause = {}) { return deleteRows(strWhereClause); }
  std::shared_ptr<Collection> GetChildrenInGroupMember(std::string_view strWhereClause = {},
                                                       std::string_view strOrderClause = {}) {
    return childrenIn(0, strWhereClause, strOrderClause);
  }
  std::int32_t CountChildrenInGroupMember() { return countChildrenIn(0); }
  std::shared_ptr<Collection> GetChildrenInZoneAddress(std::string_view strWhereClause = {},
                                                       std::string_view strOrderClause = {}) {
    return childrenIn(1, strWhereClause, strOrderClause);
  }
  std::int32_t CountChildrenInZoneAddress() { return countChildrenIn(1); }
  std::shared_ptr<Collection> GetDerivedChildrenInGroupCode(std::string_view strWhereClause = {},
                                                            std::string_view strOrderClause = {}) {
    return derivedChildrenIn(2, strWhereClause, strOrderClause);
  }
  std::int32_t CountDerivedChildrenInGroupCode(std::string_view strWhereClause = {},
                                               std::string_view strOrderClause = {}) {
    return countDerivedChildrenIn(2, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetDerivedChildrenInZone() { return derivedChildrenIn(3, {}, {}); }
  std::int32_t CountDerivedChildrenInZone(std::string_view strWhereClause = {},
                                          std::string_view strOrderClause = {}) {
    return countDerivedChildrenIn(3, strWhereClause, strOrderClause);
  }
};

}  // namespace varnock
