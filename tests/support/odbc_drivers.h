// SPDX-License-Identifier: MIT
// Test hooks: whether an ODBC driver is installed, and what a test does when
// one it needs is not: it is skipped with the reason, unless the environment
// sets VARNOCK_REQUIRE_ALL_BACK_ENDS=1 (as CI does), where it fails instead.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <string_view>

#include "automation/text.h"
#include "client/odbc/installed_drivers.h"

namespace varnock::testing {

inline bool odbcDriverInstalled(std::string_view name) {
  for (const client::odbc::InstalledDriver& driver : client::odbc::installedDrivers("test")) {
    if (equalsIgnoringCase(driver.name, name)) return true;
  }
  return false;
}

inline bool allBackEndsRequired() {
  const char* required = std::getenv("VARNOCK_REQUIRE_ALL_BACK_ENDS");
  return required != nullptr && std::string_view(required) == "1";
}

}  // namespace varnock::testing

// In a test body or SetUp: skips (or, where every back end is required,
// fails) when the ODBC driver `name` is not installed.
#define VARNOCK_REQUIRE_ODBC_DRIVER(name)                                                       \
  do {                                                                                          \
    if (!::varnock::testing::odbcDriverInstalled(name)) {                                       \
      if (::varnock::testing::allBackEndsRequired()) {                                          \
        FAIL() << "the ODBC driver " << (name)                                                  \
               << " is not installed, and VARNOCK_REQUIRE_ALL_BACK_ENDS=1 requires it";         \
      }                                                                                         \
      GTEST_SKIP() << "the ODBC driver " << (name) << " is not installed (see odbcinst -q -d)"; \
    }                                                                                           \
  } while (false)
