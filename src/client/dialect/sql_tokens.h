// SPDX-License-Identifier: MIT
// Statement text as tokens, for the rewrites that carry SQL Server's dialect
// over to SQLite. Every character of the text belongs to exactly one token, so
// joining the tokens gives the text back unchanged; a rewrite edits only the
// tokens it means to, and string literals keep every character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace varnock::client::dialect {

struct Token {
  enum class Kind {
    Space,       // blanks, tabs and line breaks
    Comment,     // "-- ..." to the end of the line, or "/* ... */"
    Word,        // a keyword or a bare name
    QuotedName,  // [name], "name" or `name`
    String,      // 'text' with '' for an apostrophe, or N'text'
    Number,      // 12, 2.5, .5, 1e3, 0x1F
    Symbol,      // an operator or a punctuation mark: = <> <= >= != || ( ) , . ; ...
  };
  Kind kind;
  std::string text;
};

// Where the token that starts at `at` ends, and what it is; for scanning a
// statement without copying it. `at` must be inside the text.
struct TokenSpan {
  Token::Kind kind;
  std::size_t end;
};
TokenSpan nextToken(std::string_view sql, std::size_t at);

std::vector<Token> tokenize(std::string_view sql);
std::string joinTokens(const std::vector<Token>& tokens);

// False for blanks and comments, which the dialect does not look at.
bool isSignificant(const Token& token) noexcept;
bool isName(const Token& token) noexcept;  // a Word or a QuotedName
// A Word equal to the keyword, without regard to case.
bool isKeyword(const Token& token, std::string_view keyword) noexcept;
bool isSymbol(const Token& token, std::string_view symbol) noexcept;

// The name a Word or QuotedName stands for: "[Zone Pool]" is "Zone Pool".
std::string nameOf(const Token& token);
// The text a String stands for: "'O''Brien'" is "O'Brien".
std::string stringValue(const Token& token);
std::string stringValue(std::string_view literal);
// A String token for a text, with its apostrophes doubled.
std::string quoted(std::string_view text);

// The positions of the significant tokens, in order.
std::vector<std::size_t> significantPositions(const std::vector<Token>& tokens);

}  // namespace varnock::client::dialect
