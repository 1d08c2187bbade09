// SPDX-License-Identifier: MIT
// The SQL trace: one JSON Lines entry per statement that a data method hands
// to the database, so users can see exactly what is sent (creating a register
// is not traced). Each entry has "time", "sql" (the exact text), "ok", "error"
// (when it failed) and "elapsed_us". Off unless VARNOCK_SQL_TRACE names a file
// (read once, when first needed) or setSqlTrace is called. Tracing never
// fails a call: an entry that cannot be written is lost.
// Thread-safe; the setting applies to the whole process.
#pragma once

#include <string>

#include "varnock/export.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

// Appends entries to `path` from now on; the empty path switches it off.
void setSqlTrace(const std::string& path);

// The file entries go to; empty when the trace is off.
std::string sqlTrace();

}  // namespace varnock
VARNOCK_PUBLIC_END
