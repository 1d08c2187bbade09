// GroupCode: a record object over one row of the register's GroupCode table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/record.h"

namespace varnock {

class GroupCode final : public Record {
 public:
  GroupCode() : Record("GroupCode") {}

  // GroupCode: nvarchar, Null refused.
  Variant get_GroupCode() const { return column(0); }
  void put_GroupCode(const Variant& value) { assign(0, value); }

  // Group: nvarchar, Null refused.
  Variant get_Group() const { return column(1); }
  void put_Group(const Variant& value) { assign(1, value); }

  // Comment: ntext, Null allowed.
  Variant get_Comment() const { return column(2); }
  void put_Comment(const Variant& value) { assign(2, value); }

  bool GetGroupCode(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstGroupCode(std::string_view strWhereClause = {},
                         std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastGroupCode(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastGroupCode(std::string_view strWhereClause = {},
                        std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextGroupCode(std::int32_t lngOffset, std::string_view strWhereClause = {},
                        std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousGroupCode(std::int32_t lngOffset, std::string_view strWhereClause = {},
                            std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryGroupCode(std::string_view strWhereClause = {},
                                                std::string_view strOrderClause = {},
                                                const Variant& lngOffset = Variant(1),
                                                const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryGroupCode(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddGroupCode() { return insertRow(); }
  bool UpdateGroupCode() { return updateRow(); }
  bool DeleteGroupCode(std::string_view strWhereClause = {}) { return deleteRows(strWhereClause); }
  std::shared_ptr<Collection> GetChildrenInGroupMember(std::string_view strWhereClause = {},
                                                       std::string_view strOrderClause = {}) {
    return childrenIn(0, strWhereClause, strOrderClause);
  }
  std::int32_t CountChildrenInGroupMember() { return countChildrenIn(0); }
  std::shared_ptr<Collection> GetDerivedChildrenInUser() { return derivedChildrenIn(1, {}, {}); }
  std::int32_t CountDerivedChildrenInUser(std::string_view strWhereClause = {},
                                          std::string_view strOrderClause = {}) {
    return countDerivedChildrenIn(1, strWhereClause, strOrderClause);
  }
};

}  // namespace varnock
