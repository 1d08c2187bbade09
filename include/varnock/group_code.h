// GroupCode: a record object over one row of the register's GroupCode table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

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
};

}  // namespace varnock
