// SPDX-License-Identifier: MIT
#include "fuzz_support.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "varnock/event_log.h"
#include "varnock/register.h"

namespace varnock::fuzz {

namespace {

std::string escaped(std::string_view text) {
  std::string out;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte < 0x7f && c != '\\') {
      out.push_back(c);
    } else {
      char code[8];
      std::snprintf(code, sizeof code, "\\x%02X", byte);
      out += code;
    }
  }
  return out;
}

struct Scratch {
  std::string folder;

  Scratch() {
    std::string pattern = (std::filesystem::temp_directory_path() / "varnock-fuzz-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
      std::perror("mkdtemp");
      std::abort();
    }
    folder = pattern;
  }
  ~Scratch() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  Scratch(const Scratch&) = delete;
  Scratch& operator=(const Scratch&) = delete;
};

std::string eventLogPath() {
  return scratchFolder() + "/events.jsonl";
}

}  // namespace

void fail(std::string_view what, std::string_view input) {
  std::fprintf(stderr, "\n== invariant broken: %.*s\n== input: \"%s\"\n",
               static_cast<int>(what.size()), what.data(), escaped(input).c_str());
  std::abort();
}

const std::string& scratchFolder() {
  static const Scratch scratch;
  return scratch.folder;
}

std::string scratchRegisterPath() {
  return scratchFolder() + "/register.db";
}

const std::string& scratchRegister() {
  static const std::string dsn = [] {
    setEventLog("file:" + eventLogPath());
    return createRegister(scratchRegisterPath());
  }();
  return dsn;
}

void keepEventLogSmall() {
  constexpr std::uintmax_t kLimit = 8u << 20;
  std::error_code error;
  if (std::filesystem::file_size(eventLogPath(), error) > kLimit && !error) {
    std::filesystem::resize_file(eventLogPath(), 0, error);
  }
}

}  // namespace varnock::fuzz
