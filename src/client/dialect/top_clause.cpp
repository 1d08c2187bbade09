// SPDX-License-Identifier: MIT
#include "client/dialect/top_clause.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "client/client.h"
#include "client/dialect/refusal.h"

namespace varnock::client::dialect {

namespace {

struct TopClause {
  std::size_t first, last;  // significant indices of TOP and of the count's last token
  std::string count;        // the row count, as LIMIT takes it
};

// The largest count SQL Server takes as a whole number (bigint); beyond it a
// literal is a decimal.
constexpr std::string_view kMaxCount = "9223372036854775807";

std::string checkedCount(std::string_view literal, bool negative) {
  const bool digitsOnly =
      !literal.empty() && literal.find_first_not_of("0123456789") == std::string_view::npos;
  if (!digitsOnly) refuse(kTopNotIntegerText);
  std::string_view digits =
      literal.substr(std::min(literal.find_first_not_of('0'), literal.size()));
  if (digits.empty()) digits = literal.substr(literal.size() - 1);  // all zeros: one of them
  if (digits.size() > kMaxCount.size() ||
      (digits.size() == kMaxCount.size() && digits > kMaxCount)) {
    refuse(kTopNotIntegerText);
  }
  if (negative && digits != "0") refuse(kTopInvalidText);
  return std::string(digits);
}

// The TOP clause that follows SELECT [DISTINCT | ALL] at significant index k.
std::optional<TopClause> topAfterSelect(const std::vector<Token>& tokens,
                                        const std::vector<std::size_t>& sig, std::size_t k) {
  auto at = [&](std::size_t i) -> const Token* {
    return i < sig.size() ? &tokens[sig[i]] : nullptr;
  };
  std::size_t i = k + 1;
  if (at(i) && (isKeyword(*at(i), "DISTINCT") || isKeyword(*at(i), "ALL"))) ++i;
  if (!at(i) || !isKeyword(*at(i), "TOP")) return std::nullopt;
  const std::size_t first = i++;
  const bool parenthesised = at(i) && isSymbol(*at(i), "(");
  if (parenthesised) ++i;
  bool negative = false;
  if (at(i) && (isSymbol(*at(i), "-") || isSymbol(*at(i), "+"))) negative = isSymbol(*at(i++), "-");
  if (!at(i) || at(i)->kind != Token::Kind::Number) return std::nullopt;
  const std::string& literal = at(i)->text;
  if (parenthesised && !(at(i + 1) && isSymbol(*at(i + 1), ")"))) return std::nullopt;
  const std::size_t last = parenthesised ? i + 1 : i;
  return TopClause{first, last, checkedCount(literal, negative)};
}

// The significant index of the last token of the SELECT whose clause list
// starts at k: what precedes the ")" that closes it, a ";" or the end.
std::size_t endOfSelect(const std::vector<Token>& tokens, const std::vector<std::size_t>& sig,
                        std::size_t k) {
  int depth = 0;
  std::size_t i = k;
  for (; i < sig.size(); ++i) {
    const Token& t = tokens[sig[i]];
    if (isSymbol(t, "(")) {
      ++depth;
    } else if (isSymbol(t, ")")) {
      if (depth == 0) break;
      --depth;
    } else if (depth == 0 && isSymbol(t, ";")) {
      break;
    }
  }
  return i - 1;
}

}  // namespace

void moveTopToLimit(std::vector<Token>& tokens) {
  const std::vector<std::size_t> sig = significantPositions(tokens);
  std::set<std::size_t> removed;                             // token positions
  std::map<std::size_t, std::vector<std::string>> appended;  // counts after a token position
  for (std::size_t k = 0; k < sig.size(); ++k) {
    if (!isKeyword(tokens[sig[k]], "SELECT")) continue;
    const std::optional<TopClause> top = topAfterSelect(tokens, sig, k);
    if (!top) continue;
    std::size_t through = sig[top->last];
    if (through + 1 < tokens.size() && tokens[through + 1].kind == Token::Kind::Space) ++through;
    for (std::size_t p = sig[top->first]; p <= through; ++p)
      removed.insert(p);
    const std::size_t end = endOfSelect(tokens, sig, top->last + 1);
    appended[sig[end]].push_back(top->count);
  }
  if (removed.empty()) return;
  std::vector<Token> out;
  out.reserve(tokens.size() + appended.size());
  for (std::size_t p = 0; p < tokens.size(); ++p) {
    if (!removed.contains(p)) out.push_back(std::move(tokens[p]));
    const auto more = appended.find(p);
    if (more == appended.end()) continue;
    for (const std::string& count : more->second) {
      out.push_back({Token::Kind::Space, " "});
      out.push_back({Token::Kind::Word, "LIMIT"});
      out.push_back({Token::Kind::Space, " "});
      out.push_back({Token::Kind::Number, count});
    }
  }
  tokens = std::move(out);
}

}  // namespace varnock::client::dialect
