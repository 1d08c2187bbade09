// SPDX-License-Identifier: MIT
// Opening a connection: the Provider key picks the factory, which hands back
// a connection that is already open.
#include <map>
#include <mutex>

#include "automation/text.h"
#include "client/provider.h"
#include "client/session_pool.h"
#include "varnock/automation_error.h"

namespace varnock::client {

namespace {

constexpr const char* kClientSource = "Varnock.Connection";

struct Registry {
  std::mutex mutex;
  std::map<std::string, std::shared_ptr<const Provider>> providers;  // by lower-case name
};

Registry& registry() {
  static Registry instance;
  return instance;
}

}  // namespace

void registerProvider(std::string name, Provider provider) {
  Registry& r = registry();
  std::lock_guard lock(r.mutex);
  r.providers[lowerCase(name)] = std::make_shared<const Provider>(std::move(provider));
  // Sessions of the provider that was there must not serve as the new one's.
  closeIdleSessions();
}

std::shared_ptr<const Provider> findProvider(std::string_view providerValue) {
  static std::once_flag builtIns;
  std::call_once(builtIns, registerBuiltInProviders);
  // "SQLOLEDB.1" names the provider "SQLOLEDB" in version 1.
  const std::string name = lowerCase(providerValue.substr(0, providerValue.find('.')));
  Registry& r = registry();
  std::lock_guard lock(r.mutex);
  if (const auto it = r.providers.find(name); it != r.providers.end()) return it->second;
  // "SQLNCLI11" names version 11 of a provider registered as "SQLNCLI".
  const std::size_t digits = name.find_last_not_of("0123456789") + 1;
  if (digits == 0 || digits == name.size()) return nullptr;
  const auto it = r.providers.find(name.substr(0, digits));
  return it != r.providers.end() && it->second->numbered ? it->second : nullptr;
}

std::shared_ptr<const Provider> providerFor(const ConnectionString& connectionString) {
  const std::string name = connectionString.get("Provider").value_or(kDefaultProvider);
  std::shared_ptr<const Provider> provider = findProvider(name);
  if (provider == nullptr) {
    throw AutomationError(kProviderNotFound,
                          "Provider cannot be found. It may not be properly installed. (Provider=" +
                              name + " is not a provider of this build of Varnock)",
                          kClientSource);
  }
  return provider;
}

std::unique_ptr<Connection> open(std::string_view connectionString) {
  return openPooled(connectionString);
}

void create(std::string_view connectionString, const ScriptForKind& scriptFor) {
  const ConnectionString parsed(connectionString);
  const std::shared_ptr<const Provider> provider = providerFor(parsed);
  if (!provider->create) {
    throw AutomationError(kCannotOpen,
                          "Provider=" + parsed.get("Provider").value_or(kDefaultProvider) +
                              " cannot create a database.",
                          kClientSource);
  }
  provider->create(parsed, scriptFor);
}

}  // namespace varnock::client
