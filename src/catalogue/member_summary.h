// SPDX-License-Identifier: MIT
// One line on what each member of a class does and what it gives back, in
// the class's own names: the help text of type libraries, Python docstrings
// and type stubs.
#pragma once

#include <string>
#include <string_view>

#include "catalogue/catalogue.h"

namespace varnock::catalogue {

std::string memberSummary(const Table& table, const Member& member);

// "String", "Long", "Boolean", "Variant", "Dictionary", "Collection", the
// class of a record result ("Zone"), or "" for no result.
std::string valueTypeName(ValueType type, std::string_view recordClass = {});

}  // namespace varnock::catalogue
