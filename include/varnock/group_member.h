// GroupMember: a record object over one row of the register's GroupMember table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include "varnock/record.h"

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
};

}  // namespace varnock
