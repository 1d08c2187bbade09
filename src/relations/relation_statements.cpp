// SPDX-License-Identifier: MIT
#include "relations/relation_statements.h"

namespace varnock::relations {

namespace {

std::string bracketed(std::string_view name) {
  return "[" + std::string(name) + "]";
}

// "[T].F"
std::string qualified(std::string_view table, std::string_view field) {
  return bracketed(table) + "." + std::string(field);
}

// The head up to the key value's opening quote. The listing and the counting
// statement of one relation name their tables in opposite orders.
std::string derivedHead(const catalogue::Table& own, const catalogue::Relation& r, bool counting) {
  const std::string far = bracketed(r.other), link = bracketed(r.through),
                    self = bracketed(own.name);
  std::string head = counting ? "SELECT Count(*) AS CountResultField FROM " : "SELECT * FROM ";
  if (r.joinsOwnTable) {
    head += counting ? far + ", " + link + ", " + self : self + ", " + link + ", " + far;
  } else {
    head += counting ? far + ", " + link : link + ", " + far;
  }
  head += "  WHERE " + qualified(r.other, r.farField) + " = " + qualified(r.through, r.farField);
  if (r.joinsOwnTable) {
    head += " AND " + qualified(r.through, r.joinField) + " = " + qualified(own.name, r.joinField) +
            " AND " + qualified(own.name, r.joinField) + " = '";
  } else {
    head += " AND " + qualified(r.through, r.joinField) + " = '";
  }
  return head;
}

}  // namespace

std::string parentLookup(const catalogue::Relation& r, std::string_view key) {
  return "SELECT * FROM " + bracketed(r.other) + " WHERE " + std::string(r.joinField) + " = '" +
         std::string(key) + "'";
}

std::string childFilter(const catalogue::Relation& r, std::string_view key,
                        std::string_view where) {
  std::string filter = std::string(r.joinField) + " = '" + std::string(key);
  if (where.empty()) return filter + "'";
  return filter + "' AND " + std::string(where);
}

std::string derivedChildren(const catalogue::Table& own, const catalogue::Relation& r,
                            bool counting, std::string_view key, std::string_view where,
                            std::string_view order) {
  std::string s = derivedHead(own, r, counting) + std::string(key) + "'";
  if (!where.empty()) s.append(" AND ").append(where);
  if (!order.empty()) s.append(" ORDER BY ").append(order);
  return s;
}

}  // namespace varnock::relations
