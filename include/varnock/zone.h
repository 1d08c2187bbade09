// Zone: a record object over one row of the register's Zone table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include "varnock/record.h"

namespace varnock {

class Zone final : public Record {
 public:
  Zone() : Record("Zone") {}

  // Zone: nvarchar, Null refused.
  Variant get_Zone() const { return column(0); }
  void put_Zone(const Variant& value) { assign(0, value); }

  // Test: bit, Null refused.
  Variant get_Test() const { return column(1); }
  void put_Test(const Variant& value) { assign(1, value); }
};

}  // namespace varnock
