// SPDX-License-Identifier: MIT
// Releasing values that hold objects without recursing once per level: a
// Dictionary in a Collection in a Dictionary ... hundreds of thousands deep
// would otherwise run out of stack as each destructor runs the next one. The
// containers hand their objects to a per-thread queue instead, and the
// outermost release empties it one object at a time.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "varnock/variant.h"

namespace varnock {

// Takes the objects out of the values and releases them, and every object
// they hold, with a stack depth that does not grow with the nesting.
void releaseNested(std::vector<Variant>& values) noexcept;
void releaseNested(std::vector<std::pair<std::string, Variant>>& entries) noexcept;

}  // namespace varnock
