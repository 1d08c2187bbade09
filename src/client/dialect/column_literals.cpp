// SPDX-License-Identifier: MIT
#include "client/dialect/column_literals.h"

#include <optional>
#include <set>
#include <string>

namespace varnock::client::dialect {

namespace {

bool isComparison(const Token& t) {
  static constexpr std::string_view kOperators[] = {"=", "==", "<>", "!=", "<", ">", "<=", ">="};
  for (const std::string_view op : kOperators) {
    if (isSymbol(t, op)) return true;
  }
  return false;
}

// Operators that bind a literal beside them into a larger expression.
bool bindsOperand(const Token& t) {
  static constexpr std::string_view kOperators[] = {"+",  "-", "*", "/", "%",
                                                    "||", "&", "|", "^", ":"};
  for (const std::string_view op : kOperators) {
    if (isSymbol(t, op)) return true;
  }
  return false;
}

// Words after which a + or - can only be a sign.
bool opensOperand(const Token& t) {
  static constexpr std::string_view kWords[] = {"WHERE", "AND",     "OR",   "NOT",
                                                "ON",    "HAVING",  "WHEN", "THEN",
                                                "ELSE",  "BETWEEN", "SET",  "VALUES"};
  if (t.kind == Token::Kind::Symbol) return !isSymbol(t, ")");
  for (const std::string_view word : kWords) {
    if (isKeyword(t, word)) return true;
  }
  return false;
}

// A column as a statement names it: Zone, [Zone], [ZoneAddress].Zone.
struct ColumnReference {
  std::string qualifier;  // the table or alias before the dot; empty when none
  std::string column;
  std::size_t first;  // the significant index of its first token
  std::size_t next;   // the significant index after the name
};

// A literal and where it ends, in significant indices.
struct LiteralSpan {
  std::size_t sign;  // ColumnLiteral::kNone without one
  std::size_t literal;
  std::size_t next;
};

class ColumnLiteralFinder {
 public:
  ColumnLiteralFinder(const std::vector<Token>& tokens, const RegisterSchema& schema)
      : tokens_(tokens), sig_(significantPositions(tokens)), schema_(schema) {
    for (const std::size_t p : sig_) {
      if (isName(tokens_[p]) && schema_.hasTable(nameOf(tokens_[p]))) {
        tables_.push_back(nameOf(tokens_[p]));
      }
    }
    findAssignmentTargets();
  }

  std::vector<ColumnLiteral> find() {
    findInsertedValues();
    for (std::size_t i = 0; i < sig_.size(); ++i) {
      findBeforeColumn(i);
      if (!(i > 0 && isSymbol(*at(i - 1), "."))) findAfterColumn(i);
    }
    return found_;
  }

 private:
  const Token* at(std::size_t i) const { return i < sig_.size() ? &tokens_[sig_[i]] : nullptr; }
  bool symbolAt(std::size_t i, std::string_view symbol) const {
    return at(i) && isSymbol(*at(i), symbol);
  }
  bool keywordAt(std::size_t i, std::string_view keyword) const {
    return at(i) && isKeyword(*at(i), keyword);
  }

  // The literal that starts at i, with its sign.
  std::optional<LiteralSpan> literalAt(std::size_t i) const {
    if (!at(i)) return std::nullopt;
    if (at(i)->kind == Token::Kind::String || at(i)->kind == Token::Kind::Number)
      return LiteralSpan{ColumnLiteral::kNone, i, i + 1};
    const bool signs = symbolAt(i, "-") || symbolAt(i, "+");
    if (signs && at(i + 1) && at(i + 1)->kind == Token::Kind::Number &&
        (i == 0 || opensOperand(*at(i - 1))))
      return LiteralSpan{i, i + 1, i + 2};
    return std::nullopt;
  }

  // The literal at i when nothing after it takes it into an expression.
  std::optional<LiteralSpan> loneLiteralAt(std::size_t i) const {
    std::optional<LiteralSpan> span = literalAt(i);
    if (span && at(span->next) && bindsOperand(*at(span->next))) return std::nullopt;
    return span;
  }

  // The dotted name starting at i; nullopt when there is none.
  std::optional<ColumnReference> dottedNameAt(std::size_t i) const {
    if (!at(i) || !isName(*at(i))) return std::nullopt;
    ColumnReference ref{"", nameOf(*at(i)), i, i + 1};
    while (symbolAt(ref.next, ".") && at(ref.next + 1) && isName(*at(ref.next + 1))) {
      ref.qualifier = ref.column;
      ref.column = nameOf(*at(ref.next + 1));
      ref.next += 2;
    }
    return ref;
  }

  // The column named at i; nullopt for a function's name or no name.
  std::optional<ColumnReference> columnAt(std::size_t i) const {
    std::optional<ColumnReference> ref = dottedNameAt(i);
    if (ref && symbolAt(ref->next, "(")) return std::nullopt;
    return ref;
  }

  // The kind of the column a reference names: in its qualifying table, or
  // in the first of the statement's tables that has it.
  std::optional<ColumnKind> kindOf(const ColumnReference& ref) const {
    if (!ref.qualifier.empty() && schema_.hasTable(ref.qualifier)) {
      if (!schema_.hasColumn(ref.qualifier, ref.column)) return std::nullopt;
      return schema_.kindOf(ref.qualifier, ref.column);
    }
    for (const std::string& table : tables_) {
      if (schema_.hasColumn(table, ref.column)) return schema_.kindOf(table, ref.column);
    }
    return std::nullopt;
  }

  void add(ColumnKind kind, bool stored, const LiteralSpan& span,
           const ColumnReference* column = nullptr) {
    if (!reported_.insert(span.literal).second) return;
    ColumnLiteral found{kind, stored, sig_[span.literal]};
    if (span.sign != ColumnLiteral::kNone) found.sign = sig_[span.sign];
    if (column) {
      found.columnFirst = sig_[column->first];
      found.columnLast = sig_[column->next - 1];
    }
    found_.push_back(found);
  }

  // 'literal' <op> column
  void findBeforeColumn(std::size_t i) {
    const std::optional<LiteralSpan> span = literalAt(i);
    if (!span || (span->sign == ColumnLiteral::kNone && i > 0 && bindsOperand(*at(i - 1)))) return;
    if (!at(span->next) || !isComparison(*at(span->next))) return;
    const std::optional<ColumnReference> ref = columnAt(span->next + 1);
    if (!ref || (at(ref->next) && bindsOperand(*at(ref->next)))) return;
    if (const std::optional<ColumnKind> kind = kindOf(*ref)) add(*kind, false, *span, &*ref);
  }

  // column <op> 'literal', column [NOT] BETWEEN 'a' AND 'b', column [NOT] IN ('a', ...)
  void findAfterColumn(std::size_t i) {
    const std::optional<ColumnReference> ref = columnAt(i);
    if (!ref) return;
    const std::optional<ColumnKind> kind = kindOf(*ref);
    if (!kind) return;
    std::size_t j = ref->next;
    if (at(j) && isComparison(*at(j))) {
      if (const std::optional<LiteralSpan> span = loneLiteralAt(j + 1))
        add(*kind, assignmentTargets_.contains(i), *span, &*ref);
      return;
    }
    if (keywordAt(j, "NOT")) ++j;
    if (keywordAt(j, "BETWEEN")) {
      const std::optional<LiteralSpan> low = loneLiteralAt(j + 1);
      if (!low) return;
      add(*kind, false, *low, &*ref);
      if (!keywordAt(low->next, "AND")) return;
      if (const std::optional<LiteralSpan> high = loneLiteralAt(low->next + 1))
        add(*kind, false, *high, &*ref);
    } else if (keywordAt(j, "IN") && symbolAt(j + 1, "(")) {
      for (j += 2;;) {
        const std::optional<LiteralSpan> span = literalAt(j);
        if (!span || !(symbolAt(span->next, ",") || symbolAt(span->next, ")"))) return;
        add(*kind, false, *span, &*ref);
        j = span->next + 1;
      }
    }
  }

  // UPDATE table SET column = value, column = value [FROM ...] [WHERE ...]:
  // the significant indices of the columns assigned.
  void findAssignmentTargets() {
    if (!keywordAt(0, "UPDATE")) return;
    std::size_t i = 1;
    while (at(i) && !keywordAt(i, "SET"))
      ++i;
    if (!at(i)) return;
    assignmentTargets_.insert(i + 1);
    int depth = 0;
    for (++i; at(i); ++i) {
      if (symbolAt(i, "(")) {
        ++depth;
      } else if (symbolAt(i, ")")) {
        --depth;
      } else if (depth == 0 && symbolAt(i, ",")) {
        assignmentTargets_.insert(i + 1);
      } else if (depth == 0 && (keywordAt(i, "WHERE") || keywordAt(i, "FROM") ||
                                keywordAt(i, "OUTPUT") || symbolAt(i, ";"))) {
        return;
      }
    }
  }

  // INSERT [INTO] table [(columns)] VALUES (values)[, (values)...]
  void findInsertedValues() {
    if (!keywordAt(0, "INSERT")) return;
    std::size_t i = keywordAt(1, "INTO") ? 2 : 1;
    const std::optional<ColumnReference> table = dottedNameAt(i);
    if (!table || !schema_.hasTable(table->column)) return;
    i = table->next;
    std::vector<std::string> columns;
    if (symbolAt(i, "(")) {
      for (++i; at(i) && !symbolAt(i, ")"); ++i) {
        if (isName(*at(i))) columns.push_back(nameOf(*at(i)));
      }
      ++i;
    } else {
      for (const RegisterSchema::Column& c : schema_.columnsOf(table->column))
        columns.push_back(c.name);
    }
    if (!keywordAt(i, "VALUES")) return;
    for (++i; symbolAt(i, "("); i += 2) {
      i = findRowValues(i + 1, table->column, columns);
      if (!symbolAt(i, ")") || !symbolAt(i + 1, ",")) return;
    }
  }

  // The lone literals of one row of values that go into the table's
  // columns; returns the index of the row's closing parenthesis.
  std::size_t findRowValues(std::size_t i, const std::string& table,
                            const std::vector<std::string>& columns) {
    std::size_t value = 0, start = i;
    int depth = 0;
    for (; at(i); ++i) {
      const bool closes = symbolAt(i, ")") && depth == 0;
      if (closes || (symbolAt(i, ",") && depth == 0)) {
        const std::optional<LiteralSpan> span = literalAt(start);
        if (span && span->next == i && value < columns.size() &&
            schema_.hasColumn(table, columns[value])) {
          add(schema_.kindOf(table, columns[value]), true, *span);
        }
        if (closes) break;
        ++value;
        start = i + 1;
      } else if (symbolAt(i, "(")) {
        ++depth;
      } else if (symbolAt(i, ")")) {
        --depth;
      }
    }
    return i;
  }

  const std::vector<Token>& tokens_;
  const std::vector<std::size_t> sig_;
  const RegisterSchema& schema_;
  std::vector<std::string> tables_;  // the register's tables the statement names
  std::set<std::size_t> assignmentTargets_;
  std::set<std::size_t> reported_;  // significant indices of the literals found
  std::vector<ColumnLiteral> found_;
};

}  // namespace

std::vector<ColumnLiteral> findColumnLiterals(const std::vector<Token>& tokens,
                                              const RegisterSchema& schema) {
  return ColumnLiteralFinder(tokens, schema).find();
}

}  // namespace varnock::client::dialect
