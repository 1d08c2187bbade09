// SPDX-License-Identifier: MIT
#include "client/sqlite/unicode_text.h"

// Built twice: into the provider, against the SQLite it links, and into the
// loadable extension, where every sqlite3_ call goes through the host's
// table of routines.
#ifdef VARNOCK_SQLITE_EXTENSION
#include <sqlite3ext.h>
SQLITE_EXTENSION_INIT3
#else
#include <sqlite3.h>
#endif

#include <optional>
#include <string_view>

#include "collation/compare.h"
#include "collation/like.h"

namespace varnock::client::sqlite {

namespace {

int compareTexts(void*, int lengthA, const void* a, int lengthB, const void* b) {
  return collation::compareWithoutCase(
      std::string_view(static_cast<const char*>(a), static_cast<std::size_t>(lengthA)),
      std::string_view(static_cast<const char*>(b), static_cast<std::size_t>(lengthB)));
}

// The whole text of a value, NUL characters included; nullopt for NULL.
// Numbers read as SQLite writes them; a blob's bytes are read as they are.
std::optional<std::string_view> textOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) return std::nullopt;
  return std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

// like(pattern, text) and like(pattern, text, escape), as SQLite calls them
// for "text LIKE pattern [ESCAPE escape]": NULL when any argument is NULL,
// and SQLite's own errors for an over-long pattern and a bad escape.
void like(sqlite3_context* context, int count, sqlite3_value** arguments) {
  for (int i = 0; i < count; ++i) {
    if (sqlite3_value_type(arguments[i]) == SQLITE_NULL) return;
  }
  const std::optional<std::string_view> pattern = textOf(arguments[0]);
  const std::optional<std::string_view> text = textOf(arguments[1]);
  if (!pattern || !text) return sqlite3_result_error_nomem(context);
  // SQLite's bound on patterns: matching time grows with their length.
  const int limit =
      sqlite3_limit(sqlite3_context_db_handle(context), SQLITE_LIMIT_LIKE_PATTERN_LENGTH, -1);
  if (pattern->size() > static_cast<std::size_t>(limit)) {
    return sqlite3_result_error(context, "LIKE or GLOB pattern too complex", -1);
  }
  std::optional<char32_t> escape;
  if (count == 3) {
    const std::optional<std::string_view> escapeText = textOf(arguments[2]);
    if (!escapeText) return sqlite3_result_error_nomem(context);
    escape = collation::escapeUnit(*escapeText);
    if (!escape) {
      return sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
    }
  }
  sqlite3_result_int(context, collation::likeMatches(*pattern, *text, escape) ? 1 : 0);
}

}  // namespace

int registerUnicodeText(sqlite3* db) {
  int result =
      sqlite3_create_collation_v2(db, kCollationName, SQLITE_UTF8, nullptr, compareTexts, nullptr);
  // Innocuous: a schema that SQLite does not trust may still call it.
  const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
  for (const int arguments : {2, 3}) {
    if (result != SQLITE_OK) break;
    result = sqlite3_create_function_v2(db, "like", arguments, flags, nullptr, like, nullptr,
                                        nullptr, nullptr);
  }
  return result;
}

}  // namespace varnock::client::sqlite
