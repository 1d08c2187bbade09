// SPDX-License-Identifier: MIT
#include "client/sqlite/sqlite_errors.h"

#include <utility>

#include "varnock/automation_error.h"

namespace varnock::client::sqlite {

void fail(std::int32_t number, std::string description) {
  throw AutomationError(number, std::move(description), kSqliteSource);
}

}  // namespace varnock::client::sqlite
