// SPDX-License-Identifier: MIT
// The exit statuses of the varnock command and the error that stands for a
// command line it cannot run.
#pragma once

#include <stdexcept>
#include <string>

namespace varnock::cli {

enum ExitStatus : int {
  kSuccess = 0,
  kReportedFailure = 1,  // a False result, a new last error message, a refused value
  kUsageError = 2,       // unknown command, class, member or option; bad value notation
  kAutomationError = 3,  // an AutomationError (or another exception) was raised
};

// A command line that cannot be run as written; reported with exit status 2.
class UsageError : public std::runtime_error {
 public:
  explicit UsageError(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace varnock::cli
