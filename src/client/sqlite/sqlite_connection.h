// A connection to one register file. It opens an existing file only (a path
// that names none fails, and no file is made), enforces foreign keys, waits
// for a register that another process is writing, and runs one statement at
// a time after carrying it over from SQL Server's dialect.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "client/client.h"
#include "client/dialect/register_schema.h"
#include "client/sqlite/sqlite_handles.h"

namespace varnock::client::sqlite {

class SqliteConnection final : public Connection {
 public:
  // Opens the database file at `path`; raises kCannotOpen when it cannot.
  explicit SqliteConnection(const std::string& path);

  std::unique_ptr<Recordset> execute(std::string_view statement) override;
  void close() noexcept override;

 private:
  SharedDatabase db_;
  std::shared_ptr<const dialect::RegisterSchema> schema_;  // as the database declares it at open
};

// Opens `path` read-write with the register's connection settings; raises
// kCannotOpen with SQLite's message when it cannot.
DatabaseHandle openDatabase(const std::string& path);

}  // namespace varnock::client::sqlite
