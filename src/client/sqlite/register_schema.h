// The register's tables and columns as its own schema declares them. The
// dialect needs to know which columns hold dates (declared smalldatetime) and
// the column order of each table; the client knows no table by name.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;

namespace varnock::client::sqlite {

class RegisterSchema {
 public:
  struct Column {
    std::string name;
    bool isDate;
  };

  // The schema of an open database. Raises kCannotOpen with SQLite's message
  // when it cannot be read (a file that is not a database, for one).
  static RegisterSchema read(sqlite3* db);

  // The schema of the database at `path`, read once per process and again
  // only when the database's schema version has changed since.
  static std::shared_ptr<const RegisterSchema> cached(sqlite3* db, const std::string& path);

  // Adds a column at the end of a table's list, by its declared type.
  void addColumn(std::string_view table, std::string_view column, std::string_view declaredType);

  bool hasTable(std::string_view table) const;
  // The columns of a table in their order; empty for an unknown table.
  const std::vector<Column>& columnsOf(std::string_view table) const;
  bool isDateColumn(std::string_view table, std::string_view column) const;

 private:
  std::map<std::string, std::vector<Column>> tables_;  // by lower-case table name
};

}  // namespace varnock::client::sqlite
