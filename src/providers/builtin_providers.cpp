// The one place that names the providers built into the library.
#include "client/provider.h"
#include "client/sqlite/sqlite_provider.h"

namespace varnock::client {

void registerBuiltInProviders() {
  registerProvider("SQLite", sqlite::sqliteProvider());
}

}  // namespace varnock::client
