// SPDX-License-Identifier: MIT
// The register's tables and columns as its own schema declares them, read by
// the provider from the database. The dialect needs to know what kind of
// value each column holds (by its declared type: smalldatetime, bit, int,
// nvarchar) and the column order of each table; the client knows no table by
// name.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace varnock::client::dialect {

// What SQL Server converts a literal to where it meets a column.
enum class ColumnKind { Text, Date, Bit, Int, Other };

// The kind of a declared type: "smalldatetime" and "datetime" are dates,
// "bit" bits, "int" ints, the character types texts.
ColumnKind kindOfType(std::string_view declaredType);

class RegisterSchema {
 public:
  struct Column {
    std::string name;
    ColumnKind kind;
  };

  // Adds a column at the end of a table's list, by its declared type.
  void addColumn(std::string_view table, std::string_view column, std::string_view declaredType);

  bool hasTable(std::string_view table) const;
  // The columns of a table in their order; empty for an unknown table.
  const std::vector<Column>& columnsOf(std::string_view table) const;
  bool isDateColumn(std::string_view table, std::string_view column) const;
  // The kind of a table's column, any case; Other for one it does not have.
  ColumnKind kindOf(std::string_view table, std::string_view column) const;
  bool hasColumn(std::string_view table, std::string_view column) const;

 private:
  std::map<std::string, std::vector<Column>> tables_;  // by lower-case table name
};

}  // namespace varnock::client::dialect
