// SPDX-License-Identifier: MIT
// Writes the register's DDL from the table catalogue, one script per kind of
// database. Usage: generate_schema SCHEMA_DIR
//   writes SCHEMA_DIR/sqlite.sql, SCHEMA_DIR/sqlserver.sql and
//   SCHEMA_DIR/postgresql.sql.
#include <fstream>
#include <iostream>
#include <string>

#include "register/ddl.h"

namespace {

bool writeFile(const std::string& path, const std::string& text) {
  std::ofstream file(path, std::ios::binary);
  file << text;
  return static_cast<bool>(file);
}

}  // namespace

int main(int argc, char** argv) {
  using varnock::schema::Dialect;
  using varnock::schema::registerDdl;
  if (argc != 2) {
    std::cerr << "usage: generate_schema SCHEMA_DIR\n";
    return 2;
  }
  const std::string dir = argv[1];
  bool ok = writeFile(dir + "/sqlite.sql", registerDdl(Dialect::Sqlite));
  ok = writeFile(dir + "/sqlserver.sql", registerDdl(Dialect::SqlServer)) && ok;
  ok = writeFile(dir + "/postgresql.sql", registerDdl(Dialect::Postgres)) && ok;
  if (!ok) {
    std::cerr << "generate_schema: cannot write to " << dir << "\n";
    return 1;
  }
  return 0;
}
