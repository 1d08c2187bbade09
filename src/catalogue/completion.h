// SPDX-License-Identifier: MIT
// Fills the derived fields of a table (ProgID, interface name, default order,
// name list, match names, members) from its facts. Used once per table while
// the catalogue is built.
#pragma once

namespace varnock::catalogue {

struct Table;
void complete(Table& table);

}  // namespace varnock::catalogue
