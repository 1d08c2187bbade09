// Providers: each database back end registers a factory under its name (the
// Provider key of a connection string, compared without regard to case and
// up to a version suffix: "SQLOLEDB.1" names "SQLOLEDB").
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "client/client.h"
#include "client/connection_string.h"

namespace varnock::client {

// Opens a connection of one provider; raises AutomationError when it cannot.
using ProviderFactory =
    std::function<std::unique_ptr<Connection>(const ConnectionString& connectionString)>;

// Registers a provider under a name; a later registration replaces it.
void registerProvider(std::string name, ProviderFactory factory);

// The factory of the provider a Provider value names, or nullptr.
const ProviderFactory* findProvider(std::string_view providerValue);

}  // namespace varnock::client
