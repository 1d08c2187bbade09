// ZoneAddress: a record object over one row of the register's ZoneAddress table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include "varnock/record.h"

namespace varnock {

class ZoneAddress final : public Record {
 public:
  ZoneAddress() : Record("ZoneAddress") {}

  // Zone: nvarchar, Null refused.
  Variant get_Zone() const { return column(0); }
  void put_Zone(const Variant& value) { assign(0, value); }

  // UserName: nvarchar, Null refused.
  Variant get_Username() const { return column(1); }
  void put_Username(const Variant& value) { assign(1, value); }

  // Address: int, Null refused.
  Variant get_Address() const { return column(2); }
  void put_Address(const Variant& value) { assign(2, value); }

  // CreationDate: smalldatetime, Null refused.
  Variant get_CreationDate() const { return column(3); }
  void put_CreationDate(const Variant& value) { assign(3, value); }
};

}  // namespace varnock
