// SPDX-License-Identifier: MIT
#include "platform/windows_event_log.h"

#include <windows.h>

namespace varnock::platform {

namespace {

// UTF-8 text in the system's ANSI code page.
std::string ansi(const std::string& text) {
  if (text.empty()) return {};
  const int wideSize =
      MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(wideSize), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                      wideSize);
  const int size =
      WideCharToMultiByte(CP_ACP, 0, wide.data(), wideSize, nullptr, 0, nullptr, nullptr);
  std::string out(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), wideSize, out.data(), size, nullptr, nullptr);
  return out;
}

}  // namespace

int reportEvent(std::uint16_t type, std::uint16_t category, std::uint32_t id,
                const std::string& source, const std::string& message) {
  const std::string text = ansi(message);
  // The message's own block, zero-filled, holding the text and its zero.
  const SIZE_T size = text.size() + 1;
  const HGLOBAL block = GlobalAlloc(GMEM_ZEROINIT, size);
  if (block == nullptr) return static_cast<int>(GetLastError());
  RtlMoveMemory(block, text.c_str(), size);
  // Not tested: a failed registration shows as a failed write.
  const HANDLE log = RegisterEventSourceA(nullptr, ansi(source).c_str());
  LPCSTR strings[] = {static_cast<LPCSTR>(block)};
  if (static_cast<WORD>(ReportEventA(log, type, category, id, nullptr, 1, 0, strings, nullptr)) ==
      0) {
    return static_cast<int>(GetLastError());
  }
  DeregisterEventSource(log);
  GlobalFree(block);
  return 0;
}

}  // namespace varnock::platform
