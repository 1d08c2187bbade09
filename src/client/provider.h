// Providers: each database back end registers a factory under its name (the
// Provider key of a connection string, compared without regard to case and
// up to a version suffix: "SQLOLEDB.1" names "SQLOLEDB"). A connection string
// without a Provider key names kDefaultProvider, as ADO's do. The built-in
// providers are registered by the library's one composition file, through
// registerBuiltInProviders().
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "client/client.h"
#include "client/connection_string.h"

namespace varnock::client {

// The provider of a connection string without a Provider key: ADO's, the
// OLE DB provider for ODBC drivers.
inline constexpr const char* kDefaultProvider = "MSDASQL";

// What a provider does; each raises AutomationError when it cannot.
struct Provider {
  // Opens a connection to an existing database; the connection is born open.
  std::function<std::unique_ptr<Connection>(const ConnectionString&)> open;
  // As client::create().
  std::function<void(const ConnectionString&, const ScriptForKind&)> create;
  // Whether it also answers to its name followed by a version number, as
  // "SQLNCLI11" names the provider registered as "SQLNCLI". The provider
  // reads the name it was given from the connection string.
  bool numbered = false;
};

// Registers a provider under a name; a later registration replaces it.
// Safe from any thread.
void registerProvider(std::string name, Provider provider);

// The provider a Provider value names, or nullptr: the name itself first,
// then, for a numbered provider, the name without its trailing digits.
std::shared_ptr<const Provider> findProvider(std::string_view providerValue);

// Registers every provider built into the library. Defined by the
// composition file, not by the client; called once, before the first look-up.
void registerBuiltInProviders();

}  // namespace varnock::client
