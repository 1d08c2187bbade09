// SPDX-License-Identifier: MIT
// Makes a new record object of the class of a table (a varnock::User for
// "User"), initialised as every new object is. The definition is generated
// from the catalogue with the class headers.
#pragma once

#include <memory>
#include <string_view>

#include "varnock/record.h"

namespace varnock {

// nullptr when no table has that exact name.
std::shared_ptr<Record> newRecord(std::string_view tableName);

}  // namespace varnock
