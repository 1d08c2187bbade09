// SPDX-License-Identifier: MIT
#include "client/odbc/installed_drivers.h"

#include <string_view>

#include "automation/text.h"
#include "client/odbc/odbc_api.h"
#include "client/odbc/odbc_handles.h"
#include "client/odbc/wide_text.h"

namespace varnock::client::odbc {

namespace {

// The Driver= attribute among "key=value\0key=value\0" pairs.
std::string libraryOf(std::u16string_view attributes) {
  while (!attributes.empty()) {
    const std::size_t end = attributes.find(u'\0');
    const std::string pair = toUtf8(attributes.substr(0, end));
    if (pair.size() > 7 && equalsIgnoringCase(std::string_view(pair).substr(0, 7), "Driver=")) {
      return pair.substr(7);
    }
    if (end == std::u16string_view::npos) break;
    attributes.remove_prefix(end + 1);
  }
  return {};
}

}  // namespace

std::vector<InstalledDriver> installedDrivers(const std::string& source) {
  const std::shared_ptr<void> env = environment(source);
  std::vector<InstalledDriver> drivers;
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  for (;;) {
    std::u16string name(256, u'\0');
    std::u16string attributes(2048, u'\0');
    SQLSMALLINT nameLength = 0;
    SQLSMALLINT attributesLength = 0;
    const SQLRETURN got =
        SQLDriversW(env.get(), direction, reinterpret_cast<SQLWCHAR*>(name.data()),
                    static_cast<SQLSMALLINT>(name.size()), &nameLength,
                    reinterpret_cast<SQLWCHAR*>(attributes.data()),
                    static_cast<SQLSMALLINT>(attributes.size()), &attributesLength);
    if (!SQL_SUCCEEDED(got)) break;  // SQL_NO_DATA after the last
    direction = SQL_FETCH_NEXT;
    name.resize(std::min(name.size(), static_cast<std::size_t>(nameLength)));
    attributes.resize(std::min(attributes.size(), static_cast<std::size_t>(attributesLength)));
    drivers.push_back({toUtf8(name), libraryOf(attributes)});
  }
  return drivers;
}

}  // namespace varnock::client::odbc
