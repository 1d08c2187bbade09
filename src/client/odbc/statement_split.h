// SPDX-License-Identifier: MIT
// Statement texts cut at their semicolons, for the databases whose drivers
// run one statement per call. A semicolon inside a literal, a quoted name, a
// comment or the body of a CREATE TRIGGER (BEGIN ... END, with CASE ... END
// inside it) does not end a statement.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varnock::client::odbc {

// The statements in order, each without its semicolon and the blanks and
// line breaks around it (comments before it stay); pieces holding only
// blanks and comments are left out.
std::vector<std::string_view> splitStatements(std::string_view sql);

// The text with each comment replaced by a blank: the SQLite driver scans a
// statement for quotes without knowing comments, so an apostrophe in one
// ("-- the register's") would open a literal there.
std::string withoutComments(std::string_view sql);

// The batches of a script for SQL Server's tools: the text between lines
// that hold only GO (in any case, blanks around it allowed); empty batches
// are left out.
std::vector<std::string_view> splitBatches(std::string_view script);

// Whether a statement begins or ends a transaction of its own (BEGIN,
// BEGIN TRANSACTION, START TRANSACTION, COMMIT, END, ROLLBACK).
bool isTransactionControl(std::string_view statement);

// The names of the tables a script creates ("CREATE TABLE [dbo].[Country]"
// gives "Country"), in order.
std::vector<std::string> createdTables(std::string_view script);

}  // namespace varnock::client::odbc
