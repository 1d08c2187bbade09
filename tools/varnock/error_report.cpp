// SPDX-License-Identifier: MIT
#include "error_report.h"

#include <cstdio>

#include "text_util.h"

namespace varnock::cli {

std::string hexNumber(std::int32_t number) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X",
                static_cast<unsigned>(static_cast<std::uint32_t>(number)));
  return text;
}

std::string describe(const AutomationError& error) {
  return "error " + hexNumber(error.number()) + " (" + std::to_string(error.number()) +
         "): " + oneLine(error.description()) + " [source: " + oneLine(error.source()) + "]";
}

}  // namespace varnock::cli
