// SPDX-License-Identifier: MIT
#include "client/sqlite/statement_cache.h"

#include <utility>

#include "automation/text.h"
#include "client/client.h"
#include "client/dialect/sqlite_dialect.h"
#include "client/sqlite/sqlite_errors.h"

namespace varnock::client::sqlite {

namespace {

// Enough for every statement a record class sends, several times over.
constexpr std::size_t kKeptStatements = 64;

}  // namespace

ResultColumns::ResultColumns(sqlite3_stmt* statement) {
  const int count = sqlite3_column_count(statement);
  names.reserve(static_cast<std::size_t>(count));
  kinds.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    const char* name = sqlite3_column_name(statement, i);
    names.emplace_back(name == nullptr ? "" : name);
    kinds.push_back(declaredKind(statement, i));
    bool first = true;
    for (int earlier = 0; earlier < i && first; ++earlier) {
      first = !equalsIgnoringCase(names[static_cast<std::size_t>(earlier)], names.back());
    }
    firstOfName.push_back(first);
  }
}

std::string failureText(sqlite3* db) {
  std::string text = sqlite3_errmsg(db);
  if ((sqlite3_extended_errcode(db) & 0xff) == SQLITE_READONLY) {
    text += " (the register is read-only for this process: it may read it, not write it)";
  }
  return text;
}

PreparedStatement StatementCache::take(std::string_view text) {
  ++uses_;
  if (const auto found = kept_.find(text); found != kept_.end()) {
    PreparedStatement taken{found->first, std::move(found->second.statement),
                            std::move(found->second.columns)};
    kept_.erase(found);
    ++taken_;
    return taken;
  }
  sqlite3_stmt* raw = nullptr;
  const char* tail = nullptr;
  const int prepared = sqlite3_prepare_v3(db_.get(), text.data(), static_cast<int>(text.size()),
                                          SQLITE_PREPARE_PERSISTENT, &raw, &tail);
  StatementHandle statement(raw);
  if (prepared != SQLITE_OK) fail(kCommandFailed, failureText(db_.get()));
  const std::string_view rest(tail, static_cast<std::size_t>(text.data() + text.size() - tail));
  if (!dialect::isBlank(rest)) fail(kCommandFailed, kSeveralStatementsText);
  if (!statement) fail(kCommandFailed, kNoStatementText);
  auto columns = std::make_shared<const ResultColumns>(statement.get());
  ++taken_;
  return {std::string(text), std::move(statement), std::move(columns)};
}

void StatementCache::giveBack(PreparedStatement prepared) noexcept {
  --taken_;
  sqlite3_reset(prepared.statement.get());
  sqlite3_clear_bindings(prepared.statement.get());
  try {
    if (kept_.size() >= kKeptStatements) {
      auto oldest = kept_.begin();
      for (auto it = kept_.begin(); it != kept_.end(); ++it) {
        if (it->second.lastUse < oldest->second.lastUse) oldest = it;
      }
      kept_.erase(oldest);
    }
    kept_.try_emplace(std::move(prepared.text),
                      Kept{std::move(prepared.statement), std::move(prepared.columns), uses_});
  } catch (...) {
    // Not kept: the statement is finalised as its handle goes.
  }
}

}  // namespace varnock::client::sqlite
