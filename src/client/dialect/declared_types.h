// SPDX-License-Identifier: MIT
// Declared column types as the register's schema writes them: "nvarchar(50)",
// "smalldatetime", "bit". A type is told by its name alone, in any case.
#pragma once

#include <string_view>

#include "automation/text.h"

namespace varnock::client::dialect {

inline bool declaresType(std::string_view declaredType, std::string_view typeName) noexcept {
  std::string_view base = declaredType.substr(0, declaredType.find('('));
  while (!base.empty() && base.back() == ' ')
    base.remove_suffix(1);
  return equalsIgnoringCase(base, typeName);
}

}  // namespace varnock::client::dialect
