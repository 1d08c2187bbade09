// SPDX-License-Identifier: MIT
#include <windows.h>

#include <string>

#include "platform/files.h"

namespace varnock::platform {

namespace {

std::wstring wide(const std::string& text) {
  if (text.empty()) return {};
  const int size =
      MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring out(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), out.data(), size);
  return out;
}

int writeWhole(HANDLE file, const std::string& line) {
  DWORD written = 0;
  if (!WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr)) {
    return static_cast<int>(GetLastError());
  }
  return written == line.size() ? 0 : ERROR_WRITE_FAULT;
}

}  // namespace

int appendLine(const std::string& path, const std::string& line) {
  // Appending access alone makes each write land at the end, whoever else
  // appends; a pipe without a reader fails to open rather than waiting.
  const HANDLE file = CreateFileW(wide(path).c_str(), FILE_APPEND_DATA,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return static_cast<int>(GetLastError());
  const int code = writeWhole(file, line);
  CloseHandle(file);
  return code;
}

int writeStandardError(const std::string& line) {
  const HANDLE error = GetStdHandle(STD_ERROR_HANDLE);
  if (error == nullptr || error == INVALID_HANDLE_VALUE) return ERROR_INVALID_HANDLE;
  return writeWhole(error, line);
}

std::optional<FileIdentity> fileIdentity(const std::string& path) {
  const HANDLE file =
      CreateFileW(wide(path).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  BY_HANDLE_FILE_INFORMATION information{};
  const bool known = GetFileInformationByHandle(file, &information) != 0;
  CloseHandle(file);
  if (!known) return std::nullopt;
  return FileIdentity{information.dwVolumeSerialNumber,
                      (static_cast<unsigned long long>(information.nFileIndexHigh) << 32) |
                          information.nFileIndexLow};
}

std::tm utcTime(std::time_t seconds) {
  std::tm utc{};
  gmtime_s(&utc, &seconds);
  return utc;
}

}  // namespace varnock::platform
