// SPDX-License-Identifier: MIT
// Varnock: the record classes of the user register Tolvane_Register, and
// everything else a C++ client may use: every public header.
// Generated from the table catalogue by tools/generate_classes.cpp.
#pragma once

#include "varnock/automation_error.h"
#include "varnock/collection.h"
#include "varnock/conversions.h"
#include "varnock/dictionary.h"
#include "varnock/event_log.h"
#include "varnock/export.h"
#include "varnock/host.h"
#include "varnock/record.h"
#include "varnock/register.h"
#include "varnock/sql_trace.h"
#include "varnock/type_library.h"
#include "varnock/variant.h"

#include "varnock/country.h"
#include "varnock/error_log.h"
#include "varnock/group_code.h"
#include "varnock/group_member.h"
#include "varnock/log_file.h"
#include "varnock/parm.h"
#include "varnock/state.h"
#include "varnock/user.h"
#include "varnock/zone.h"
#include "varnock/zone_address.h"
#include "varnock/zone_pool.h"
