// SPDX-License-Identifier: MIT
#include "register/ddl_parts.h"

#include <algorithm>
#include <cstdint>
#include <map>

namespace varnock::schema::parts {

using catalogue::RelationKind;
using catalogue::SqlType;

std::vector<const Column*> primaryKey(const Table& t) {
  std::vector<const Column*> key;
  if (t.wholeRowKey) return key;
  for (const std::uint8_t position : t.keyColumns)
    key.push_back(&t.columns[position]);
  return key;
}

std::vector<ForeignKey> foreignKeys(const Table& t) {
  std::vector<ForeignKey> keys;
  for (const Column& c : t.columns) {
    for (const catalogue::Relation& r : t.relations) {
      if (r.kind == RelationKind::Parent && r.joinField == c.field)
        keys.push_back({&c, &catalogue::table(r.other)});
    }
  }
  return keys;
}

const Table* parentThrough(const Table& t, const Column& c) {
  for (const ForeignKey& fk : foreignKeys(t)) {
    if (fk.column == &c) return fk.parent;
  }
  return nullptr;
}

std::vector<const Column*> indexedColumns(const Table& t) {
  const std::vector<const Column*> key = primaryKey(t);
  std::vector<const Column*> indexed;
  for (const ForeignKey& fk : foreignKeys(t)) {
    if (key.empty() || key.front() != fk.column) indexed.push_back(fk.column);
  }
  return indexed;
}

// Tables sorted by how many generations of parents they have, stably.
std::vector<const Table*> creationOrder() {
  std::map<std::string_view, int> generation;
  const auto generationOf = [&](const auto& self, const Table& t) -> int {
    if (const auto known = generation.find(t.name); known != generation.end()) return known->second;
    int g = 0;
    for (const ForeignKey& fk : foreignKeys(t))
      g = std::max(g, self(self, *fk.parent) + 1);
    generation[t.name] = g;
    return g;
  };
  std::vector<const Table*> order;
  for (const Table& t : catalogue::tables()) {
    generationOf(generationOf, t);
    order.push_back(&t);
  }
  std::stable_sort(order.begin(), order.end(), [&](const Table* a, const Table* b) {
    return generation.at(a->name) < generation.at(b->name);
  });
  return order;
}

std::string declaredType(const Column& c) {
  std::string type(catalogue::sqlTypeName(c.type));
  if (c.length > 0) type += "(" + std::to_string(c.length) + ")";
  return type;
}

bool isText(const Column& c) {
  return c.type == SqlType::Nvarchar || c.type == SqlType::Ntext;
}

std::string nameList(const std::vector<const Column*>& columns,
                     std::string (*quote)(std::string_view name)) {
  std::string list;
  for (const Column* c : columns)
    list += (list.empty() ? "" : ", ") + quote(c->field);
  return list;
}

std::string definitions(const std::vector<std::string>& lines) {
  std::string body;
  for (const std::string& line : lines)
    body += (body.empty() ? "" : ",\n") + line;
  return body + "\n";
}

std::string doubleQuoted(std::string_view name) {
  return "\"" + std::string(name) + "\"";
}

std::string bracketed(std::string_view name) {
  return "[" + std::string(name) + "]";
}

}  // namespace varnock::schema::parts
