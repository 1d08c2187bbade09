// SPDX-License-Identifier: MIT
#include "client/odbc/odbc_provider.h"

#include <cstdlib>
#include <memory>
#include <optional>

#include "automation/text.h"
#include "client/odbc/installed_drivers.h"
#include "client/odbc/odbc_connection.h"
#include "client/odbc/odbc_create.h"
#include "client/odbc/odbc_login.h"

namespace varnock::client::odbc {

namespace {

std::optional<std::string> driverSetting() {
  const char* named = std::getenv(kSqlServerDriverVariable);
  if (named == nullptr || *named == '\0') return std::nullopt;
  return std::string(named);
}

struct Target {
  OdbcLogin login;
  std::string source;
};

Target sqlServerTarget(const ConnectionString& connectionString) {
  std::string source = sqlServerSource(connectionString.get("Provider").value_or(""));
  OdbcLogin login = sqlServerLogin(connectionString, installedDrivers(source), driverSetting());
  return {std::move(login), std::move(source)};
}

}  // namespace

std::string sqlServerSource(std::string_view providerValue) {
  const std::string name = lowerCase(providerValue.substr(0, providerValue.find('.')));
  const auto versionOf = [&](std::string_view base) { return name.substr(base.size()); };
  if (name.rfind("sqlncli", 0) == 0) {
    const std::string version = versionOf("sqlncli");
    if (version.empty()) return "Microsoft SQL Native Client";
    return "Microsoft SQL Server Native Client " + version + ".0";
  }
  if (name.rfind("msoledbsql", 0) == 0) {
    const std::string version = versionOf("msoledbsql");
    return version.empty() ? "Microsoft OLE DB Driver for SQL Server"
                           : "Microsoft OLE DB Driver " + version + " for SQL Server";
  }
  return "Microsoft OLE DB Provider for SQL Server";
}

Provider msdasqlProvider() {
  Provider provider;
  provider.open = [](const ConnectionString& connectionString) {
    return std::unique_ptr<Session>(
        std::make_unique<OdbcConnection>(odbcLogin(connectionString), kOdbcSource));
  };
  provider.create = [](const ConnectionString& connectionString, const ScriptForKind& scriptFor) {
    createOnOdbc(odbcLogin(connectionString), kOdbcSource, scriptFor);
  };
  return provider;
}

Provider sqlServerProvider() {
  Provider provider;
  provider.open = [](const ConnectionString& connectionString) {
    Target target = sqlServerTarget(connectionString);
    return std::unique_ptr<Session>(
        std::make_unique<OdbcConnection>(target.login, std::move(target.source)));
  };
  provider.create = [](const ConnectionString& connectionString, const ScriptForKind& scriptFor) {
    const Target target = sqlServerTarget(connectionString);
    createOnOdbc(target.login, target.source, scriptFor);
  };
  provider.numbered = true;
  return provider;
}

}  // namespace varnock::client::odbc
