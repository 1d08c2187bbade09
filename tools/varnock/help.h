// SPDX-License-Identifier: MIT
// The text of "varnock --help": commands, options, value notation,
// environment variables and exit statuses.
#pragma once

#include <string_view>

namespace varnock::cli {

std::string_view helpText();

}  // namespace varnock::cli
