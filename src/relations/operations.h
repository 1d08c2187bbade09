// SPDX-License-Identifier: MIT
// The relation methods of every record class, by the relation's position
// among its table's relations: parent lookup (GetParentInUser), children
// (GetChildrenInGroupMember, CountChildrenInGroupMember) and derived children
// (GetDerivedChildrenInZone, CountDerivedChildrenInZone). A failed parent
// lookup or listing returns nullptr, a failed count 0; each stores the
// description and writes one event, as the other data methods do. A position
// outside the table's relations raises AutomationError 5.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "varnock/collection.h"
#include "varnock/record.h"

namespace varnock::relations {

std::shared_ptr<Record> parentIn(Record& record, std::size_t relation);
std::shared_ptr<Collection> childrenIn(Record& record, std::size_t relation, std::string_view where,
                                       std::string_view order);
std::int32_t countChildrenIn(Record& record, std::size_t relation);
std::shared_ptr<Collection> derivedChildrenIn(Record& record, std::size_t relation,
                                              std::string_view where, std::string_view order);
std::int32_t countDerivedChildrenIn(Record& record, std::size_t relation, std::string_view where,
                                    std::string_view order);

}  // namespace varnock::relations
