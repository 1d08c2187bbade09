// SPDX-License-Identifier: MIT
// varnock copy FROM TO [--append]: every row of one register into another,
// with a progress bar on a terminal and the rows per table at the end.
#pragma once

#include <ostream>

#include "commands.h"

namespace varnock::cli {

// `progress` receives the bar; it is drawn only when `onTerminal` is true.
ExitStatus copyCommand(const Words& words, std::ostream& out, std::ostream& progress,
                       bool onTerminal);

}  // namespace varnock::cli
