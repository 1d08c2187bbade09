// SPDX-License-Identifier: MIT
// What kind of statement a text is, told from its first word.
#pragma once

#include <string_view>

namespace varnock::client {

// True for SELECT, INSERT, UPDATE, DELETE and WITH (past blanks, comments and
// opening parentheses): statements that read or write rows and change
// nothing else about the session they run on.
bool readsOrWritesRows(std::string_view statement);

}  // namespace varnock::client
