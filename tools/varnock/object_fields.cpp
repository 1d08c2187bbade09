// SPDX-License-Identifier: MIT
#include "object_fields.h"

#include "varnock/dictionary.h"
#include "varnock/record.h"

namespace varnock::cli {

std::optional<std::vector<NamedValue>> fieldsOf(const Variant& value) {
  if (!value.isObject()) return std::nullopt;
  const Object* object = value.asObject().get();
  const Dictionary* dictionary = dynamic_cast<const Dictionary*>(object);
  std::shared_ptr<Dictionary> columns;
  if (const auto* record = dynamic_cast<const Record*>(object)) {
    columns = record->GetDictionary();
    dictionary = columns.get();
  }
  if (dictionary == nullptr) return std::nullopt;
  std::vector<NamedValue> fields;
  for (const auto& [key, item] : *dictionary)
    fields.push_back({key, item});
  return fields;
}

const Collection* collectionOf(const Variant& value) {
  if (!value.isObject()) return nullptr;
  return dynamic_cast<const Collection*>(value.asObject().get());
}

}  // namespace varnock::cli
