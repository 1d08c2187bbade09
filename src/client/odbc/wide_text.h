// SPDX-License-Identifier: MIT
// Text between Varnock (UTF-8, in std::string) and ODBC's wide calls (UTF-16
// code units, SQLWCHAR). Lengths are explicit both ways, so embedded NULs and
// characters beyond the Basic Multilingual Plane go through unchanged.
#pragma once

#include <string>
#include <string_view>

namespace varnock::client::odbc {

// A malformed sequence (a stray continuation byte, an overlong form, a
// surrogate written in UTF-8, a truncated character) becomes U+FFFD.
std::u16string toUtf16(std::string_view utf8);

// An unpaired surrogate becomes U+FFFD.
std::string toUtf8(std::u16string_view utf16);

}  // namespace varnock::client::odbc
