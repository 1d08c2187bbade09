// SPDX-License-Identifier: MIT
// User: a record object over one row of the register's User table: its
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

class User final : public Record {
 public:
  User() : Record("User") {}

  // UserName: nvarchar, Null refused.
  Variant get_Username() const;
  void put_Username(const Variant& value);

  // SiteType: nvarchar, Null allowed.
  Variant get_SiteType() const;
  void put_SiteType(const Variant& value);

  // Firstname: nvarchar, Null allowed.
  Variant get_Firstname() const;
  void put_Firstname(const Variant& value);

  // Lastname: nvarchar, Null refused.
  Variant get_Lastname() const;
  void put_Lastname(const Variant& value);

  // Country: nvarchar, Null refused.
  Variant get_Country() const;
  void put_Country(const Variant& value);

  // State: nvarchar, Null allowed.
  Variant get_State() const;
  void put_State(const Variant& value);

  // Password: nvarchar, Null refused.
  Variant get_Password() const;
  void put_Password(const Variant& value);

  // Email: nvarchar, Null refused.
  Variant get_Email() const;
  void put_Email(const Variant& value);

  // Pagetopic: nvarchar, Null allowed.
  Variant get_Pagetopic() const;
  void put_Pagetopic(const Variant& value);

  // Bio: nvarchar, Null allowed.
  Variant get_Bio() const;
  void put_Bio(const Variant& value);

  // Graphic: nvarchar, Null allowed.
  Variant get_Graphic() const;
  void put_Graphic(const Variant& value);

  // Link: nvarchar, Null allowed.
  Variant get_Link() const;
  void put_Link(const Variant& value);

  // DateCreated: smalldatetime, Null allowed.
  Variant get_DateCreated() const;
  void put_DateCreated(const Variant& value);

  // Authorized: bit, Null refused.
  Variant get_Authorized() const;
  void put_Authorized(const Variant& value);

  // AuthorisationDate: smalldatetime, Null allowed.
  Variant get_AuthorisationDate() const;
  void put_AuthorisationDate(const Variant& value);

  // AuthorisationMessage: ntext, Null allowed.
  Variant get_AuthorisationMessage() const;
  void put_AuthorisationMessage(const Variant& value);

  // REMOTE_ADDR: nvarchar, Null allowed.
  Variant get_REMOTE_ADDR() const;
  void put_REMOTE_ADDR(const Variant& value);

  bool GetUser(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstUser(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastUser(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastUser(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetNextUser(std::int32_t lngOffset, std::string_view strWhereClause = {},
                   std::string_view strOrderClause = {});
  bool GetPreviousUser(std::int32_t lngOffset, std::string_view strWhereClause = {},
                       std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryUser(std::string_view strWhereClause = {},
                                           std::string_view strOrderClause = {},
                                           const Variant& lngOffset = Variant(1),
                                           const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryUser(std::string_view strWhereClause = {});
  bool AddUser();
  bool UpdateUser();
  bool DeleteUser(std::string_view strWhereClause = {});
  std::shared_ptr<Collection> GetChildrenInGroupMember(std::string_view strWhereClause = {},
                                                       std::string_view strOrderClause = {});
  std::int32_t CountChildrenInGroupMember();
  std::shared_ptr<Collection> GetChildrenInZoneAddress(std::string_view strWhereClause = {},
                                                       std::string_view strOrderClause = {});
  std::int32_t CountChildrenInZoneAddress();
  std::shared_ptr<Collection> GetDerivedChildrenInGroupCode(std::string_view strWhereClause = {},
                                                            std::string_view strOrderClause = {});
  std::int32_t CountDerivedChildrenInGroupCode(std::string_view strWhereClause = {},
                                               std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetDerivedChildrenInZone();
  std::int32_t CountDerivedChildrenInZone(std::string_view strWhereClause = {},
                                          std::string_view strOrderClause = {});
};

}  // namespace varnock
VARNOCK_PUBLIC_END
