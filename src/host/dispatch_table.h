// SPDX-License-Identifier: MIT
// Finds a member of a class's interface by dispatch identifier and invoke
// kind in constant time. One table per catalogue table, built on first use.
#pragma once

#include <cstdint>

#include "catalogue/catalogue.h"

namespace varnock::host {

// The member a call means, or nullptr when the class has none of that
// identifier and kind.
const catalogue::Member* findMember(const catalogue::Table& table, std::int32_t dispatchId,
                                    std::uint16_t kind);

}  // namespace varnock::host
