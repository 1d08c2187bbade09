#include "client/sqlite/sqlite_provider.h"

#include <memory>

#include "client/provider.h"
#include "client/sqlite/sqlite_connection.h"

namespace varnock::client::sqlite {

void registerSqliteProvider() {
  registerProvider("SQLite", [](const ConnectionString& connectionString) {
    return std::unique_ptr<Connection>(std::make_unique<SqliteConnection>(connectionString));
  });
}

}  // namespace varnock::client::sqlite
