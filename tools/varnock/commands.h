// SPDX-License-Identifier: MIT
// The commands of the varnock tool. Each takes the words after its name,
// writes its output and answers an exit status; UsageError and
// AutomationError are left to the caller, which reports them.
#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "exit_status.h"

namespace varnock::cli {

using Words = std::vector<std::string>;

ExitStatus initCommand(const Words& words, std::ostream& out, std::ostream& err);
ExitStatus callCommand(const Words& words, std::istream& in, std::ostream& out, std::ostream& err);
ExitStatus membersCommand(const Words& words, std::ostream& out);
ExitStatus idlCommand(const Words& words, std::ostream& out);

}  // namespace varnock::cli
