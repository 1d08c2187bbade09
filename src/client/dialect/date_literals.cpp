#include "client/dialect/date_literals.h"

#include <cstddef>
#include <optional>
#include <set>
#include <string>

#include "client/dialect/stored_dates.h"

namespace varnock::client::dialect {

namespace {

bool isComparison(const Token& t) {
  static constexpr std::string_view kOperators[] = {"=", "==", "<>", "!=", "<", ">", "<=", ">="};
  for (const std::string_view op : kOperators) {
    if (isSymbol(t, op)) return true;
  }
  return false;
}

// A column as a statement names it: Zone, [Zone], [ZoneAddress].Zone.
struct ColumnReference {
  std::string qualifier;  // the table or alias before the dot; empty when none
  std::string column;
  std::size_t next;  // the significant index after the name
};

class DateLiteralFinder {
 public:
  DateLiteralFinder(const std::vector<Token>& tokens, const RegisterSchema& schema)
      : tokens_(tokens), sig_(significantPositions(tokens)), schema_(schema) {
    for (const std::size_t p : sig_) {
      if (isName(tokens_[p]) && schema_.hasTable(nameOf(tokens_[p]))) {
        tables_.push_back(nameOf(tokens_[p]));
      }
    }
  }

  // Token positions of the literals that stand for dates.
  std::set<std::size_t> find() {
    findInsertedValues();
    for (std::size_t i = 0; i < sig_.size(); ++i) {
      if (at(i)->kind == Token::Kind::String) {
        findBeforeColumn(i);
      } else if (!(i > 0 && isSymbol(*at(i - 1), "."))) {
        findAfterColumn(i);
      }
    }
    return marked_;
  }

 private:
  const Token* at(std::size_t i) const { return i < sig_.size() ? &tokens_[sig_[i]] : nullptr; }
  bool symbolAt(std::size_t i, std::string_view symbol) const {
    return at(i) && isSymbol(*at(i), symbol);
  }
  bool keywordAt(std::size_t i, std::string_view keyword) const {
    return at(i) && isKeyword(*at(i), keyword);
  }
  bool stringAt(std::size_t i) const { return at(i) && at(i)->kind == Token::Kind::String; }
  void mark(std::size_t i) { marked_.insert(sig_[i]); }

  // The dotted name starting at i; nullopt when there is none.
  std::optional<ColumnReference> dottedNameAt(std::size_t i) const {
    if (!at(i) || !isName(*at(i))) return std::nullopt;
    ColumnReference ref{"", nameOf(*at(i)), i + 1};
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

  bool isDate(const ColumnReference& ref) const {
    if (!ref.qualifier.empty() && schema_.hasTable(ref.qualifier)) {
      return schema_.isDateColumn(ref.qualifier, ref.column);
    }
    for (const std::string& table : tables_) {
      if (schema_.isDateColumn(table, ref.column)) return true;
    }
    return false;
  }

  // 'literal' <op> column
  void findBeforeColumn(std::size_t i) {
    if (!at(i + 1) || !isComparison(*at(i + 1))) return;
    const std::optional<ColumnReference> ref = columnAt(i + 2);
    if (ref && isDate(*ref)) mark(i);
  }

  // column <op> 'literal', column [NOT] BETWEEN 'a' AND 'b', column [NOT] IN ('a', ...)
  void findAfterColumn(std::size_t i) {
    const std::optional<ColumnReference> ref = columnAt(i);
    if (!ref || !isDate(*ref)) return;
    std::size_t j = ref->next;
    if (at(j) && isComparison(*at(j))) {
      if (stringAt(j + 1)) mark(j + 1);
      return;
    }
    if (keywordAt(j, "NOT")) ++j;
    if (keywordAt(j, "BETWEEN")) {
      if (stringAt(j + 1)) mark(j + 1);
      if (keywordAt(j + 2, "AND") && stringAt(j + 3)) mark(j + 3);
    } else if (keywordAt(j, "IN") && symbolAt(j + 1, "(")) {
      for (j += 2; stringAt(j) && (symbolAt(j + 1, ",") || symbolAt(j + 1, ")")); j += 2) {
        mark(j);
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
      i = markRowValues(i + 1, table->column, columns);
      if (!symbolAt(i, ")") || !symbolAt(i + 1, ",")) return;
    }
  }

  // Marks the lone literals of one row of values that go into date columns;
  // returns the index of the row's closing parenthesis.
  std::size_t markRowValues(std::size_t i, const std::string& table,
                            const std::vector<std::string>& columns) {
    std::size_t value = 0, start = i;
    int depth = 0;
    for (; at(i); ++i) {
      const bool closes = symbolAt(i, ")") && depth == 0;
      if (closes || (symbolAt(i, ",") && depth == 0)) {
        if (i == start + 1 && stringAt(start) && value < columns.size() &&
            schema_.isDateColumn(table, columns[value])) {
          mark(start);
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
  std::set<std::size_t> marked_;
};

}  // namespace

void rewriteDateLiterals(std::vector<Token>& tokens, const RegisterSchema& schema) {
  for (const std::size_t p : DateLiteralFinder(tokens, schema).find()) {
    tokens[p].text = quoted(storedDateText(stringValue(tokens[p])));
  }
}

}  // namespace varnock::client::dialect
