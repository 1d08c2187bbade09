// ErrorLog: a record object over one row of the register's ErrorLog table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include "varnock/record.h"

namespace varnock {

class ErrorLog final : public Record {
 public:
  ErrorLog() : Record("ErrorLog") {}

  // DateCreated: smalldatetime, Null refused.
  Variant get_DateCreated() const { return column(0); }
  void put_DateCreated(const Variant& value) { assign(0, value); }

  // UserId: nvarchar, Null refused.
  Variant get_UserId() const { return column(1); }
  void put_UserId(const Variant& value) { assign(1, value); }

  // ErrorNumber: int, Null refused.
  Variant get_ErrorNumber() const { return column(2); }
  void put_ErrorNumber(const Variant& value) { assign(2, value); }

  // ErrorDescription: nvarchar, Null refused.
  Variant get_ErrorDescription() const { return column(3); }
  void put_ErrorDescription(const Variant& value) { assign(3, value); }

  // Message: nvarchar, Null allowed.
  Variant get_Message() const { return column(4); }
  void put_Message(const Variant& value) { assign(4, value); }
};

}  // namespace varnock
