// Country: a record object over one row of the register's Country table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include "varnock/record.h"

namespace varnock {

class Country final : public Record {
 public:
  Country() : Record("Country") {}

  // Country: nvarchar, Null refused.
  Variant get_Country() const { return column(0); }
  void put_Country(const Variant& value) { assign(0, value); }
};

}  // namespace varnock
