// SPDX-License-Identifier: MIT
#include <pthread.h>

#include "platform/process.h"

namespace varnock::platform {

void whenForked(void (*action)() noexcept) {
  pthread_atfork(nullptr, nullptr, action);
}

}  // namespace varnock::platform
