// SPDX-License-Identifier: MIT
// Sessions kept between the connections callers open and close, as OLE DB's
// resource pooling keeps them under ADO: opening a connection whose string
// was used before takes an idle session of that exact string, and closing
// (or releasing) a connection hands its session back. Callers cannot tell:
// a session serves again only as a new one would (see Session), sessions
// idle for a minute are closed, and a forked child never touches its
// parent's sessions.
//
// Pooling is on unless the connection string's "OLE DB Services" value
// leaves out resource pooling (its lowest bit: -1 keeps every service, -2,
// -4 and 0 leave pooling out), or the environment variable
// VARNOCK_SESSION_POOLING is 0, off, no or false.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <string_view>

#include "client/client.h"
#include "client/connection_string.h"

namespace varnock::client {

// Whether connections with this string may be served from the pool; a value
// of "OLE DB Services" that is not a whole number raises kCannotOpen.
bool poolingRequested(const ConnectionString& connectionString);

// Whether this process pools sessions at all (VARNOCK_SESSION_POOLING).
bool poolingProcessWide();

// What the pool has done in this process, for tests and diagnostics.
struct SessionPoolCounts {
  std::uint64_t opened = 0;     // sessions opened by a provider
  std::uint64_t reused = 0;     // opens served by an idle session
  std::uint64_t discarded = 0;  // sessions closed rather than kept or reused
  std::size_t idle = 0;         // sessions waiting now
};
SessionPoolCounts sessionPoolCounts();

// Closes every idle session now.
void closeIdleSessions() noexcept;

// How long a session may wait unused before it is closed (a minute unless
// changed); for tests that cannot wait that long.
void setSessionIdleTimeout(std::chrono::milliseconds timeout);

// The connection client::open() gives: a session from the pool, or a new one.
std::unique_ptr<Connection> openPooled(std::string_view connectionString);

}  // namespace varnock::client
