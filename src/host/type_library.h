// SPDX-License-Identifier: MIT
// The type library description, as MIDL text made from the table catalogue.
#pragma once

#include <string>

namespace varnock::host {

// The whole library: header, forward declarations, then each class's dual
// interface followed by its coclass, in catalogue order.
std::string typeLibraryText();

}  // namespace varnock::host
