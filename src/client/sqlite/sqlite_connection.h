// A connection to one register file. It opens an existing file only (a path
// that names none fails, and no file is made), enforces foreign keys, waits
// for a register that another process is writing, and runs one statement at
// a time after carrying it over from SQL Server's dialect.
#pragma once

#include <memory>
#include <string_view>

#include "client/client.h"
#include "client/connection_string.h"
#include "client/sqlite/register_schema.h"
#include "client/sqlite/sqlite_handles.h"

namespace varnock::client::sqlite {

class SqliteConnection final : public Connection {
 public:
  // Opens the register that the Data Source key names.
  explicit SqliteConnection(const ConnectionString& connectionString);

  void open(std::string_view connectionString) override;
  std::unique_ptr<Recordset> execute(std::string_view statement) override;
  void close() override;

 private:
  void openDataSource(const ConnectionString& connectionString);

  SharedDatabase db_;
  std::shared_ptr<const RegisterSchema> schema_;  // as the database declares it at open
};

}  // namespace varnock::client::sqlite
