// SPDX-License-Identifier: MIT
#include "dsn.h"

#include <cstdlib>

#include "varnock/register.h"

namespace varnock::cli {

namespace {

constexpr const char* kDefaultRegister = "./register.db";

}  // namespace

std::string connectionStringOf(std::string_view dsnOrPath) {
  if (dsnOrPath.find('=') != std::string_view::npos) return std::string(dsnOrPath);
  return registerConnectionString(std::string(dsnOrPath));
}

std::string chosenConnectionString(const std::optional<std::string>& option) {
  if (option) return connectionStringOf(*option);
  const char* fromEnvironment = std::getenv("VARNOCK_DSN");
  if (fromEnvironment != nullptr && *fromEnvironment != '\0') {
    return connectionStringOf(fromEnvironment);
  }
  return registerConnectionString(kDefaultRegister);
}

}  // namespace varnock::cli
