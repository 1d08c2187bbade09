// SPDX-License-Identifier: MIT
// GroupCode: a record object over one row of the register's GroupCode table: its
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

class GroupCode final : public Record {
 public:
  GroupCode() : Record("GroupCode") {}

  // GroupCode: nvarchar, Null refused.
  Variant get_GroupCode() const;
  void put_GroupCode(const Variant& value);

  // Group: nvarchar, Null refused.
  Variant get_Group() const;
  void put_Group(const Variant& value);

  // Comment: ntext, Null allowed.
  Variant get_Comment() const;
  void put_Comment(const Variant& value);

  bool GetGroupCode(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstGroupCode(std::string_view strWhereClause = {},
                         std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastGroupCode(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastGroupCode(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetNextGroupCode(std::int32_t lngOffset, std::string_view strWhereClause = {},
                        std::string_view strOrderClause = {});
  bool GetPreviousGroupCode(std::int32_t lngOffset, std::string_view strWhereClause = {},
                            std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryGroupCode(std::string_view strWhereClause = {},
                                                std::string_view strOrderClause = {},
                                                const Variant& lngOffset = Variant(1),
                                                const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryGroupCode(std::string_view strWhereClause = {});
  bool AddGroupCode();
  bool UpdateGroupCode();
  bool DeleteGroupCode(std::string_view strWhereClause = {});
  std::shared_ptr<Collection> GetChildrenInGroupMember(std::string_view strWhereClause = {},
                                                       std::string_view strOrderClause = {});
  std::int32_t CountChildrenInGroupMember();
  std::shared_ptr<Collection> GetDerivedChildrenInUser();
  std::int32_t CountDerivedChildrenInUser(std::string_view strWhereClause = {},
                                          std::string_view strOrderClause = {});
};

}  // namespace varnock
VARNOCK_PUBLIC_END
