// SPDX-License-Identifier: MIT
// What every kind of register DDL reads from the catalogue beyond the
// columns themselves: keys, foreign keys, the indexes beside them, the order
// tables are created in. Internal to the register layer.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"

namespace varnock::schema::parts {

using catalogue::Column;
using catalogue::Table;

struct ForeignKey {
  const Column* column;
  const Table* parent;  // referenced on its column of the same name, its key
};

// The key columns in key order. The logs have none: their key is the whole
// row, and two entries may be alike in every column.
std::vector<const Column*> primaryKey(const Table& t);
// One per parent relation, in column order.
std::vector<ForeignKey> foreignKeys(const Table& t);
// The table a column refers to, or nullptr.
const Table* parentThrough(const Table& t, const Column& c);
// Foreign-key columns that need an index of their own: the primary key's
// index already serves the column that leads it.
std::vector<const Column*> indexedColumns(const Table& t);
// Catalogue order, except that a table comes after every table it refers to.
std::vector<const Table*> creationOrder();

// SQL Server's own words for the values it refuses.
inline constexpr std::string_view kUnreadableDate =
    "Conversion failed when converting date and/or time from character string.";
inline constexpr std::string_view kDateOutOfRange =
    "The conversion of a varchar data type to a smalldatetime data type resulted in an "
    "out-of-range value.";
inline constexpr std::string_view kIntOverflow =
    "Arithmetic overflow error converting expression to data type int.";
inline constexpr std::string_view kTextTooLong = "String or binary data would be truncated.";

// "nvarchar(50)", "int": the type as SQL Server declares it.
std::string declaredType(const Column& c);
bool isText(const Column& c);

// The fields of the columns, each quoted by `quote`, joined by ", ".
std::string nameList(const std::vector<const Column*>& columns,
                     std::string (*quote)(std::string_view name));
// The body of a CREATE TABLE: one definition a line, separated by commas.
std::string definitions(const std::vector<std::string>& lines);

std::string doubleQuoted(std::string_view name);
std::string bracketed(std::string_view name);

// The PostgreSQL register's script (postgres_ddl.cpp).
std::string postgresDdl();

}  // namespace varnock::schema::parts
