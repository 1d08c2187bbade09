// SPDX-License-Identifier: MIT
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

// A provider's connection to a database, as the session pool holds it: the
// connections callers open and close are lent one of these, which may serve
// many of them in turn. Its close() ends it for good.
class Session : public Connection {
 public:
  // Asked when a caller is done with it: whether it may serve the next caller
  // exactly as a new one would (no rows still being read, no transaction
  // open, no setting changed, still connected). Never throws.
  virtual bool reusable() noexcept = 0;
  // Asked before it serves again: whether it still reaches the database it was
  // opened on as that database now is (the same file, a live server
  // connection); it may refresh what it keeps of the schema. Never throws.
  virtual bool current() noexcept = 0;
};

// What a provider does; each raises AutomationError when it cannot.
struct Provider {
  // Opens a session on an existing database; the session is born open.
  std::function<std::unique_ptr<Session>(const ConnectionString&)> open;
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

// The provider a connection string's Provider key names (kDefaultProvider
// without one); raises kProviderNotFound when none is registered. The
// provider stays alive for its caller even if registered anew meanwhile.
std::shared_ptr<const Provider> providerFor(const ConnectionString& connectionString);

// Registers every provider built into the library. Defined by the
// composition file, not by the client; called once, before the first look-up.
void registerBuiltInProviders();

}  // namespace varnock::client
