// SPDX-License-Identifier: MIT
#include "wide_text.h"

// The Windows headers that the others need first.
#include <windows.h>

#include <oleauto.h>

namespace varnock::com {

std::string narrow(const wchar_t* text, std::size_t length) {
  if (length == 0) return {};
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(length), nullptr, 0, nullptr, nullptr);
  std::string out(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text, static_cast<int>(length), out.data(), size, nullptr,
                      nullptr);
  return out;
}

std::string narrow(BSTR text) {
  return text == nullptr ? std::string() : narrow(text, SysStringLen(text));
}

std::wstring wide(std::string_view text) {
  if (text.empty()) return {};
  const int size =
      MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring out(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(), size);
  return out;
}

BSTR newBstr(std::string_view text) {
  const std::wstring w = wide(text);
  return SysAllocStringLen(w.data(), static_cast<UINT>(w.size()));
}

}  // namespace varnock::com
