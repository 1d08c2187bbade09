// SPDX-License-Identifier: MIT
// The Windows event log writer: one entry written to the event log of the
// local computer under a source registered for that entry alone.
#pragma once

#include <cstdint>
#include <string>

namespace varnock::platform {

// Writes one entry: its type, category and identifier, no user, one
// insertion string (the message, in the system's ANSI code page) and no raw
// data. Returns 0, or the system error code of a failed write. A failed
// write keeps its source handle and message block, as the writer always
// has: the caller's method ends with that error in any case.
int reportEvent(std::uint16_t type, std::uint16_t category, std::uint32_t id,
                const std::string& source, const std::string& message);

}  // namespace varnock::platform
