// SPDX-License-Identifier: MIT
// The MIDL description of the Varnock type library: the library, the eleven
// record classes and their dual interfaces with dispatch identifiers, argument
// names, directions and defaults. For tools and scripts that want to bind
// early; written from the table catalogue on each call.
#pragma once

#include <string>

#include "varnock/export.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

std::string typeLibraryText();

}  // namespace varnock
VARNOCK_PUBLIC_END
