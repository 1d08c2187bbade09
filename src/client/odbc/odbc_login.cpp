// SPDX-License-Identifier: MIT
#include "client/odbc/odbc_login.h"

#include <charconv>
#include <initializer_list>
#include <utility>

#include "automation/text.h"

namespace varnock::client::odbc {

namespace {

using Pairs = std::vector<std::pair<std::string, std::string>>;

// The first of the keys the connection string holds, in the order given.
std::optional<std::string> firstOf(const ConnectionString& cs,
                                   std::initializer_list<std::string_view> keys) {
  for (const std::string_view key : keys) {
    if (std::optional<std::string> value = cs.get(key)) return value;
  }
  return std::nullopt;
}

// A later key replaces an earlier one in its place, as the last one wins in
// an OLE DB connection string.
void put(Pairs& pairs, std::string key, std::string value) {
  for (auto& [k, v] : pairs) {
    if (equalsIgnoringCase(k, key)) {
      v = std::move(value);
      return;
    }
  }
  pairs.emplace_back(std::move(key), std::move(value));
}

std::string joined(const Pairs& pairs) {
  std::string text;
  for (const auto& [key, value] : pairs) {
    if (!text.empty()) text += ';';
    text += odbcPair(key, value);
  }
  return text;
}

std::optional<unsigned> wholeNumber(const std::optional<std::string>& text) {
  if (!text || text->empty()) return std::nullopt;
  unsigned value = 0;
  const auto [end, error] = std::from_chars(text->data(), text->data() + text->size(), value);
  if (error != std::errc() || end != text->data() + text->size()) return std::nullopt;
  return value;
}

bool isTrue(const std::optional<std::string>& text) {
  if (!text) return false;
  for (const char* yes : {"true", "yes", "sspi", "1"}) {
    if (equalsIgnoringCase(*text, yes)) return true;
  }
  return false;
}

bool contains(std::string_view text, std::string_view part) {
  return lowerCase(text).find(lowerCase(part)) != std::string::npos;
}

unsigned loginTimeoutOf(const ConnectionString& cs) {
  return wholeNumber(firstOf(cs, {"Connect Timeout", "Connection Timeout"}))
      .value_or(kDefaultLoginTimeoutSeconds);
}

bool isInstalled(const std::vector<InstalledDriver>& installed, std::string_view name) {
  for (const InstalledDriver& driver : installed) {
    if (equalsIgnoringCase(driver.name, name)) return true;
  }
  return false;
}

// FreeTDS by its registered name or by its library, whatever name
// odbcinst.ini gives it.
bool isFreeTds(const std::vector<InstalledDriver>& installed, std::string_view name) {
  if (contains(name, "freetds")) return true;
  for (const InstalledDriver& driver : installed) {
    if (equalsIgnoringCase(driver.name, name)) return contains(driver.library, "tdsodbc");
  }
  return false;
}

std::string chosenDriver(const std::vector<InstalledDriver>& installed,
                         const std::optional<std::string>& preferred) {
  if (preferred && !preferred->empty()) return *preferred;
  for (const char* microsoft : kMicrosoftDrivers) {
    if (isInstalled(installed, microsoft)) return microsoft;
  }
  return kFreeTdsDriver;
}

// The local host by the name that every driver resolves.
constexpr std::string_view kLocalHost = "localhost";

}  // namespace

std::string odbcPair(std::string_view key, std::string_view value) {
  // A value already in braces ("Driver={SQLite3}") was written for ODBC.
  const bool braced = value.size() >= 2 && value.front() == '{' && value.back() == '}';
  const bool plain = braced || (value.find_first_of(";{}") == std::string_view::npos &&
                                trimBlanks(value).size() == value.size());
  std::string text(key);
  text += '=';
  if (plain) return text.append(value);
  text += '{';
  for (const char c : value) {
    text += c;
    if (c == '}') text += '}';
  }
  return text + '}';
}

std::string serverFor(std::string_view dataSource) {
  std::string_view server = trimBlanks(dataSource);
  for (const std::string_view protocol : {"tcp:", "np:", "lpc:", "admin:"}) {
    if (server.size() >= protocol.size() &&
        equalsIgnoringCase(server.substr(0, protocol.size()), protocol)) {
      server.remove_prefix(protocol.size());
      break;
    }
  }
  const std::size_t nameEnd = server.find_first_of("\\,");
  const std::string_view host = server.substr(0, nameEnd);
  const std::string_view rest =
      nameEnd == std::string_view::npos ? std::string_view() : server.substr(nameEnd);
  // LocalDB's instances are reached through pipes that no Linux driver has;
  // the local server stands in for them.
  if (equalsIgnoringCase(host, "(localdb)")) return std::string(kLocalHost);
  if (host.empty() || host == "." || equalsIgnoringCase(host, "(local)")) {
    return std::string(kLocalHost) + std::string(rest);
  }
  return std::string(server);
}

OdbcLogin odbcLogin(const ConnectionString& connectionString) {
  OdbcLogin login;
  login.loginTimeoutSeconds = loginTimeoutOf(connectionString);
  Pairs pairs;
  std::string extended;
  for (const auto& [key, value] : connectionString.pairs()) {
    if (equalsIgnoringCase(key, "Provider") || equalsIgnoringCase(key, "Persist Security Info") ||
        equalsIgnoringCase(key, "Connect Timeout") || equalsIgnoringCase(key, "OLE DB Services") ||
        equalsIgnoringCase(key, "Connection Timeout")) {
      continue;
    }
    if (equalsIgnoringCase(key, "Extended Properties")) {
      extended = value;  // already in ODBC's own form
    } else if (equalsIgnoringCase(key, "Data Source")) {
      put(pairs, "DSN", value);
    } else if (equalsIgnoringCase(key, "User ID")) {
      put(pairs, "UID", value);
    } else if (equalsIgnoringCase(key, "Password")) {
      put(pairs, "PWD", value);
    } else {
      put(pairs, key, value);
    }
  }
  login.connectionString = joined(pairs);
  if (!extended.empty()) {
    if (!login.connectionString.empty()) login.connectionString += ';';
    login.connectionString += extended;
  }
  return login;
}

OdbcLogin sqlServerLogin(const ConnectionString& cs, const std::vector<InstalledDriver>& installed,
                         const std::optional<std::string>& preferredDriver) {
  const std::string driver = chosenDriver(installed, preferredDriver);
  const bool freeTds = isFreeTds(installed, driver);
  OdbcLogin login;
  login.loginTimeoutSeconds = loginTimeoutOf(cs);
  Pairs pairs;
  put(pairs, "Driver", "{" + driver + "}");
  put(pairs, "Server",
      serverFor(firstOf(cs, {"Data Source", "Server", "Address", "Addr", "Network Address"})
                    .value_or("")));
  if (auto database = firstOf(cs, {"Initial Catalog", "Database"})) {
    put(pairs, "Database", std::move(*database));
  }
  if (isTrue(firstOf(cs, {"Integrated Security", "Trusted_Connection"}))) {
    // The operating system's login: Kerberos on Linux, for both drivers.
    put(pairs, "Trusted_Connection", "Yes");
  } else {
    if (auto user = firstOf(cs, {"User ID", "UID", "User"})) put(pairs, "UID", std::move(*user));
    if (auto password = firstOf(cs, {"Password", "PWD"})) put(pairs, "PWD", std::move(*password));
  }
  if (auto language = firstOf(cs, {"Current Language", "Language"})) {
    put(pairs, "Language", std::move(*language));
  }
  if (auto application = firstOf(cs, {"Application Name", "APP"})) {
    put(pairs, "APP", std::move(*application));
  }
  if (auto workstation = firstOf(cs, {"Workstation ID", "WSID"})) {
    put(pairs, "WSID", std::move(*workstation));
  }
  if (const std::optional<unsigned> packet = wholeNumber(firstOf(cs, {"Packet Size"}))) {
    // FreeTDS reads it as a key; Microsoft's drivers only as an attribute.
    if (freeTds) {
      put(pairs, "PacketSize", std::to_string(*packet));
    } else {
      login.packetSize = packet;
    }
  }
  if (const auto encrypt = firstOf(cs, {"Use Encryption for Data", "Encrypt"})) {
    if (freeTds) {
      put(pairs, "Encryption", isTrue(encrypt) ? "require" : "request");
    } else {
      put(pairs, "Encrypt", isTrue(encrypt) ? "yes" : "no");
    }
  }
  if (const auto trust = firstOf(cs, {"Trust Server Certificate", "TrustServerCertificate"});
      trust && !freeTds) {
    put(pairs, "TrustServerCertificate", isTrue(trust) ? "yes" : "no");
  }
  login.connectionString = joined(pairs);
  return login;
}

}  // namespace varnock::client::odbc
