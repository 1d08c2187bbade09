// SPDX-License-Identifier: MIT
// Connection strings: any text parses, and any value written as valueText
// writes it reads back exactly, as the register's connection strings are made.
#include <cstddef>
#include <cstdint>
#include <string>

#include "client/connection_string.h"
#include "fuzz_support.h"
#include "varnock/register.h"

namespace {

using varnock::client::ConnectionString;
using varnock::fuzz::check;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > varnock::fuzz::kMaxInputSize) return 0;
  const std::string_view input = varnock::fuzz::textOf(data, size);

  // Any text is a connection string, if only of ignored segments.
  const ConnectionString parsed(input);
  static_cast<void>(parsed.get("Data Source"));

  const std::string written = ConnectionString::valueText(input);
  check(ConnectionString("Data Source=" + written).get("Data Source") == input,
        "a value written by valueText reads back exactly", input);
  check(ConnectionString("Provider=SQLite;Data Source=" + written).get("data source") == input,
        "a value written by valueText reads back after another pair", input);
  check(
      ConnectionString(varnock::registerConnectionString(std::string(input))).get("Data Source") ==
          input,
      "a register path reads back from its connection string", input);
  return 0;
}
