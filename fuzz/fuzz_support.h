// SPDX-License-Identifier: MIT
// What the fuzz targets share: the bound on an input, the check that turns a
// broken invariant into a finding, and a scratch register for the targets
// that need a database.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace varnock::fuzz {

// Longer inputs are skipped: they find nothing the short ones do not, and
// they slow a run down.
inline constexpr std::size_t kMaxInputSize = 4096;

inline std::string_view textOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Prints what did not hold, with the input as escaped text, and aborts so
// that libFuzzer keeps the input as a reproducer.
[[noreturn]] void fail(std::string_view what, std::string_view input);

inline void check(bool holds, std::string_view what, std::string_view input) {
  if (!holds) fail(what, input);
}

// A folder of this process's own under the system's temporary folder, made
// on first use and removed when the process ends.
const std::string& scratchFolder();

// A register created once per process in the scratch folder, with its event
// log sent to a file beside it; the connection string that opens it.
const std::string& scratchRegister();

// The path of the register file behind scratchRegister().
std::string scratchRegisterPath();

// Empties the scratch event log once it has grown past a few megabytes, so
// that a long run does not fill the disk with refusals.
void keepEventLogSmall();

}  // namespace varnock::fuzz
