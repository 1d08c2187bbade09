// SPDX-License-Identifier: MIT
// The ODBC drivers the driver manager knows (odbcinst.ini), asked once per
// call through SQLDriversW.
#pragma once

#include <string>
#include <vector>

#include "client/odbc/odbc_login.h"

namespace varnock::client::odbc {

// Raises kCannotOpen (with `source`) when the driver manager cannot be asked.
std::vector<InstalledDriver> installedDrivers(const std::string& source);

}  // namespace varnock::client::odbc
