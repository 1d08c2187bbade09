// State: a record object over one row of the register's State table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include "varnock/record.h"

namespace varnock {

class State final : public Record {
 public:
  State() : Record("State") {}

  // State: nvarchar, Null refused.
  Variant get_State() const { return column(0); }
  void put_State(const Variant& value) { assign(0, value); }
};

}  // namespace varnock
