// SPDX-License-Identifier: MIT
#include "client/odbc/wide_text.h"

#include <cstdint>

namespace varnock::client::odbc {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isContinuation(unsigned char byte) noexcept {
  return (byte & 0xC0) == 0x80;
}

// The code point that starts at `at`, moving `at` past it.
char32_t decodeUtf8(std::string_view utf8, std::size_t& at) noexcept {
  const auto lead = static_cast<unsigned char>(utf8[at++]);
  if (lead < 0x80) return lead;
  struct Form {
    unsigned char mask, pattern;
    int extra;
    char32_t smallest;  // below it, the form is overlong
  };
  constexpr Form kForms[] = {
      {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}};
  const Form* form = nullptr;
  for (const Form& f : kForms) {
    if ((lead & f.mask) == f.pattern) form = &f;
  }
  if (form == nullptr) return kReplacement;
  const int extra = form->extra;
  const char32_t smallest = form->smallest;
  char32_t point = lead & static_cast<unsigned char>(~form->mask);
  for (int i = 0; i < extra; ++i) {
    // A truncated sequence leaves the byte that broke it for the next character.
    if (at >= utf8.size() || !isContinuation(static_cast<unsigned char>(utf8[at]))) {
      return kReplacement;
    }
    point = (point << 6) | (static_cast<unsigned char>(utf8[at++]) & 0x3F);
  }
  if (point < smallest || point > 0x10FFFF || (point >= 0xD800 && point <= 0xDFFF)) {
    return kReplacement;
  }
  return point;
}

void appendUtf8(std::string& out, char32_t point) {
  if (point < 0x80) {
    out += static_cast<char>(point);
  } else if (point < 0x800) {
    out += static_cast<char>(0xC0 | (point >> 6));
    out += static_cast<char>(0x80 | (point & 0x3F));
  } else if (point < 0x10000) {
    out += static_cast<char>(0xE0 | (point >> 12));
    out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (point & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (point >> 18));
    out += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (point & 0x3F));
  }
}

}  // namespace

std::u16string toUtf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  for (std::size_t at = 0; at < utf8.size();) {
    const char32_t point = decodeUtf8(utf8, at);
    if (point < 0x10000) {
      out += static_cast<char16_t>(point);
    } else {
      const char32_t above = point - 0x10000;
      out += static_cast<char16_t>(0xD800 + (above >> 10));
      out += static_cast<char16_t>(0xDC00 + (above & 0x3FF));
    }
  }
  return out;
}

std::string toUtf8(std::u16string_view utf16) {
  std::string out;
  out.reserve(utf16.size());
  for (std::size_t at = 0; at < utf16.size(); ++at) {
    const char16_t unit = utf16[at];
    if (unit >= 0xD800 && unit <= 0xDBFF && at + 1 < utf16.size() && utf16[at + 1] >= 0xDC00 &&
        utf16[at + 1] <= 0xDFFF) {
      appendUtf8(out, 0x10000 + ((static_cast<char32_t>(unit) - 0xD800) << 10) +
                          (static_cast<char32_t>(utf16[++at]) - 0xDC00));
    } else if (unit >= 0xD800 && unit <= 0xDFFF) {
      appendUtf8(out, kReplacement);
    } else {
      appendUtf8(out, unit);
    }
  }
  return out;
}

}  // namespace varnock::client::odbc
