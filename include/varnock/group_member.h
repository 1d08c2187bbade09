// GroupMember: a record object over one row of the register's GroupMember table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/group_code.h"
#include "varnock/record.h"
#include "varnock/user.h"

namespace varnock {

class GroupMember final : public Record {
 public:
  GroupMember() : Record("GroupMember") {}

  // GroupCode: nvarchar, Null refused.
  Variant get_GroupCode() const { return column(0); }
  void put_GroupCode(const Variant& value) { assign(0, value); }

  // UserName: nvarchar, Null refused.
  Variant get_Username() const { return column(1); }
  void put_Username(const Variant& value) { assign(1, value); }

  bool GetGroupMember(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstGroupMember(std::string_view strWhereClause = {},
                           std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastGroupMember(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastGroupMember(std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextGroupMember(std::int32_t lngOffset, std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousGroupMember(std::int32_t lngOffset, std::string_view strWhereClause = {},
                              std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryGroupMember(std::string_view strWhereClause = {},
                                                  std::string_view strOrderClause = {},
                                                  const Variant& lngOffset = Variant(1),
                                                  const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryGroupMember(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddGroupMember() { return insertRow(); }
  bool UpdateGroupMember() { return updateRow(); }
  bool DeleteGroupMember(std::string_view strWhereClause = {}) {
    return deleteRows(strWhereClause);
  }
  std::shared_ptr<GroupCode> GetParentInGroupCode() {
    return std::static_pointer_cast<GroupCode>(parentIn(0));
  }
  std::shared_ptr<User> GetParentInUser() { return std::static_pointer_cast<User>(parentIn(1)); }
};

}  // namespace varnock
