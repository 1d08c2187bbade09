// LogFile: a record object over one row of the register's LogFile table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include "varnock/record.h"

namespace varnock {

class LogFile final : public Record {
 public:
  LogFile() : Record("LogFile") {}

  // ProgramName: nvarchar, Null refused.
  Variant get_ProgramName() const { return column(0); }
  void put_ProgramName(const Variant& value) { assign(0, value); }

  // LogDate: smalldatetime, Null refused.
  Variant get_LogDate() const { return column(1); }
  void put_LogDate(const Variant& value) { assign(1, value); }

  // Username: nvarchar, Null allowed.
  Variant get_Username() const { return column(2); }
  void put_Username(const Variant& value) { assign(2, value); }

  // Message: nvarchar, Null refused.
  Variant get_Message() const { return column(3); }
  void put_Message(const Variant& value) { assign(3, value); }
};

}  // namespace varnock
