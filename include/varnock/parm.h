// Parm: a record object over one row of the register's Parm table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include "varnock/record.h"

namespace varnock {

class Parm final : public Record {
 public:
  Parm() : Record("Parm") {}

  // Section: nvarchar, Null refused.
  Variant get_Section() const { return column(0); }
  void put_Section(const Variant& value) { assign(0, value); }

  // KeyName: nvarchar, Null refused.
  Variant get_KeyName() const { return column(1); }
  void put_KeyName(const Variant& value) { assign(1, value); }

  // Value: nvarchar, Null allowed.
  Variant get_Value() const { return column(2); }
  void put_Value(const Variant& value) { assign(2, value); }

  // Comment: ntext, Null allowed.
  Variant get_Comment() const { return column(3); }
  void put_Comment(const Variant& value) { assign(3, value); }

  // Locked: bit, Null refused.
  Variant get_Locked() const { return column(4); }
  void put_Locked(const Variant& value) { assign(4, value); }
};

}  // namespace varnock
