// SPDX-License-Identifier: MIT
#include "text_util.h"

#include <cstdio>

namespace varnock::cli {

namespace {

void appendEscaped(std::string& out, std::string_view text, bool quotes) {
  for (const char c : text) {
    if (quotes && (c == '"' || c == '\\')) {
      out += '\\';
      out += c;
      continue;
    }
    switch (c) {
      case '\n':
        out += "\\n";
        break;
      case '\r':
        out += "\\r";
        break;
      case '\t':
        out += "\\t";
        break;
      default:
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) {
          char code[8];
          std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(c));
          out += code;
        } else {
          out += c;
        }
    }
  }
}

}  // namespace

std::string oneLine(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  appendEscaped(out, text, false);
  return out;
}

std::string inQuotes(std::string_view text) {
  std::string out = "\"";
  appendEscaped(out, text, true);
  out += '"';
  return out;
}

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  for (const char c : text) {
    // Continuation bytes (10xxxxxx) belong to the character before them.
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++width;
  }
  return width;
}

}  // namespace varnock::cli
