// SPDX-License-Identifier: MIT
// The fields of the objects a call can give back, for both output formats:
// a record object shows its columns, a Dictionary its entries.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "call_outcome.h"
#include "varnock/collection.h"

namespace varnock::cli {

// The fields of a record object or Dictionary; nullopt for anything else.
std::optional<std::vector<NamedValue>> fieldsOf(const Variant& value);

// The collection a value refers to, or nullptr.
const Collection* collectionOf(const Variant& value);

}  // namespace varnock::cli
