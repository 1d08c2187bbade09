// SPDX-License-Identifier: MIT
// The statement texts of the data methods, built by concatenating fixed
// pieces, the caller's conditions and orderings unchanged, and values. Pure
// functions of the table and their arguments, so each text can be checked
// character for character.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "catalogue/catalogue.h"
#include "varnock/variant.h"

namespace varnock::sql {

// "[T]": how every statement names its table.
std::string tableRef(const catalogue::Table& table);

// "K1 = 'v1' AND  K2 = 'v2'": the key values, one per key column in key
// order, as text and unescaped, as lookups and deletes compare them.
std::string keyCondition(const catalogue::Table& table, const std::vector<std::string>& keyValues);

// "SELECT * FROM [T] WHERE " + the key condition.
std::string keyLookup(const catalogue::Table& table, const std::vector<std::string>& keyValues);

// "SELECT TOP 1 * FROM [T] WHERE " + condition.
std::string conditionLookup(const catalogue::Table& table, std::string_view where);

// Appends " ORDER BY " + order when the order is not empty.
void appendOrder(std::string& statement, std::string_view order);

// "SELECT TOP 1 * FROM [T]", the condition and the order.
std::string first(const catalogue::Table& table, std::string_view where, std::string_view order);

// Row n + 1 of a walk: "SELECT TOP 1 * FROM [T] WHERE N NOT IN  (SELECT TOP n
// N FROM [T]" and the walk's tail; `skipped` is n in its text form.
std::string afterSkipping(const catalogue::Table& table, std::string_view skipped,
                          std::string_view where, std::string_view order);

// GetEvery's statement; `limit` and `skipped` are empty when not applied.
std::string every(const catalogue::Table& table, std::string_view limit, std::string_view skipped,
                  std::string_view where, std::string_view order);

// "SELECT Count(*) AS CountResultField FROM [T]" and the condition.
std::string count(const catalogue::Table& table, std::string_view where);

// The writers' statements from the record's column values, in column order.
// They raise what rendering raises: type mismatch for a date column holding
// no date, error 5 for a list that comes out empty.

// "INSERT INTO [T] ([C1], [C2]) VALUES ('v1', 2)": the columns holding a value.
std::string insert(const catalogue::Table& table, const std::vector<Variant>& values);

// "UPDATE [T] SET [C1] = 'v1', [C2] = NULL WHERE [K1] = 'k1'": every column,
// the row named by the current key values; tables whose key is the whole row
// have no WHERE text and fail with error 5.
std::string update(const catalogue::Table& table, const std::vector<Variant>& values);

// "DELETE FROM [T] WHERE K1 = 'k1' AND  K2 = 'k2'": key values unescaped, Null as nothing.
std::string deleteByKey(const catalogue::Table& table, const std::vector<Variant>& values);

// "DELETE FROM [T] WHERE " + condition.
std::string deleteWhere(const catalogue::Table& table, std::string_view where);

// GetLast's order: the default reverse order for an empty one, otherwise the
// directions swapped as text (" asc" <-> " desc", in any case), with " DESC"
// appended when the order names no direction at all.
std::string reversedOrder(const catalogue::Table& table, std::string_view order);

}  // namespace varnock::sql
