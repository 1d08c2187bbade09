// ZonePool: a record object over one row of the register's ZonePool table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include "varnock/record.h"

namespace varnock {

class ZonePool final : public Record {
 public:
  ZonePool() : Record("ZonePool") {}

  // Zone: nvarchar, Null refused.
  Variant get_Zone() const { return column(0); }
  void put_Zone(const Variant& value) { assign(0, value); }

  // Address: int, Null refused.
  Variant get_Address() const { return column(1); }
  void put_Address(const Variant& value) { assign(1, value); }
};

}  // namespace varnock
