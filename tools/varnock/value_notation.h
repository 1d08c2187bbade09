// SPDX-License-Identifier: MIT
// How argument and --set values are written on the command line:
//   null, empty        Null, Empty (any case)
//   true, false        Boolean (any case)
//   -12, +7            a 32-bit integer when it fits, otherwise a double
//   1.5, -.5, 2e3      a double
//   #5/4/2000 1:45 PM# a Date, by the register's date rule; #2000-05-04# too
//   str:TEXT           TEXT exactly as written ("str:null" is the text "null")
//   anything else      text as written
#pragma once

#include <string_view>

#include "varnock/variant.h"

namespace varnock::cli {

// Raises UsageError for a date that does not parse or a number out of range.
Variant parseValue(std::string_view text);

}  // namespace varnock::cli
