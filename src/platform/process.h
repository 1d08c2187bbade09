// SPDX-License-Identifier: MIT
// What differs between Linux and Windows about processes: only Linux forks.
#pragma once

namespace varnock::platform {

// Runs `action` in the child of every fork from now on, before the child
// goes on. Nothing happens where processes are not forked.
void whenForked(void (*action)() noexcept);

}  // namespace varnock::platform
