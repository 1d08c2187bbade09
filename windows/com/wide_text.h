// SPDX-License-Identifier: MIT
// Text between Varnock (UTF-8) and COM (UTF-16 BSTRs).
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace varnock::com {

std::string narrow(const wchar_t* text, std::size_t length);
std::string narrow(BSTR text);
std::wstring wide(std::string_view text);
// A new BSTR; nullptr only when memory ran out.
BSTR newBstr(std::string_view text);

}  // namespace varnock::com
