// SPDX-License-Identifier: MIT
#include "platform/process.h"

namespace varnock::platform {

// Windows makes new processes from programs, never by forking this one.
void whenForked(void (*)() noexcept) {}

}  // namespace varnock::platform
