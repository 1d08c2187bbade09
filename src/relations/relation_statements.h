// SPDX-License-Identifier: MIT
// The texts the relation methods build: the parent lookup, the filter handed
// to a child class's own enumeration, and the join statements of derived
// children. Pure functions of the catalogue's relations and their arguments.
#pragma once

#include <string>
#include <string_view>

#include "catalogue/catalogue.h"

namespace varnock::relations {

// "SELECT * FROM [P] WHERE F = '" + key + "'".
std::string parentLookup(const catalogue::Relation& relation, std::string_view key);

// "F = '" + key + "'", or "F = '" + key + "' AND " + where.
std::string childFilter(const catalogue::Relation& relation, std::string_view key,
                        std::string_view where);

// The join statement of a derived relation: its head (listing or counting),
// the key and "'", then " AND " + where and " ORDER BY " + order when given.
std::string derivedChildren(const catalogue::Table& own, const catalogue::Relation& relation,
                            bool counting, std::string_view key, std::string_view where,
                            std::string_view order);

}  // namespace varnock::relations
