// SPDX-License-Identifier: MIT
// GroupMember: a record object over one row of the register's GroupMember table: its
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
#include "varnock/group_code.h"
#include "varnock/record.h"
#include "varnock/user.h"
#include "varnock/variant.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

class GroupMember final : public Record {
 public:
  GroupMember() : Record("GroupMember") {}

  // GroupCode: nvarchar, Null refused.
  Variant get_GroupCode() const;
  void put_GroupCode(const Variant& value);

  // UserName: nvarchar, Null refused.
  Variant get_Username() const;
  void put_Username(const Variant& value);

  bool GetGroupMember(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstGroupMember(std::string_view strWhereClause = {},
                           std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastGroupMember(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastGroupMember(std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {});
  bool GetNextGroupMember(std::int32_t lngOffset, std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {});
  bool GetPreviousGroupMember(std::int32_t lngOffset, std::string_view strWhereClause = {},
                              std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryGroupMember(std::string_view strWhereClause = {},
                                                  std::string_view strOrderClause = {},
                                                  const Variant& lngOffset = Variant(1),
                                                  const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryGroupMember(std::string_view strWhereClause = {});
  bool AddGroupMember();
  bool UpdateGroupMember();
  bool DeleteGroupMember(std::string_view strWhereClause = {});
  std::shared_ptr<GroupCode> GetParentInGroupCode();
  std::shared_ptr<User> GetParentInUser();
};

}  // namespace varnock
VARNOCK_PUBLIC_END
