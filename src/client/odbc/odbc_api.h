// SPDX-License-Identifier: MIT
// The ODBC API, as each platform's headers declare it: Windows' expect
// <windows.h> before them.
#pragma once

#ifdef _WIN32
#include <windows.h>
#endif

#include <sql.h>
#include <sqlext.h>
#include <sqltypes.h>
#include <sqlucode.h>
