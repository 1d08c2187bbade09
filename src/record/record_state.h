// Internal access to a record object's state for the layers that run its
// operations (data methods, access by name): they store failure messages the
// same way refusals do.
#pragma once

#include <string>

#include "varnock/record.h"

namespace varnock {

class RecordState {
 public:
  static void setLastErrorMessage(Record& record, std::string message) {
    record.lastError_ = std::move(message);
  }
  // Gives `to` the connection string of `from`, sharing rather than copying it.
  static void shareConnectionString(Record& to, const Record& from) { to.dsn_ = from.dsn_; }
};

}  // namespace varnock
