// SPDX-License-Identifier: MIT
#include "automation/nested_release.h"
#include "varnock/automation_error.h"
#include "varnock/collection.h"
#include "varnock/conversions.h"
#include "varnock/dictionary.h"

namespace varnock {

namespace {

constexpr std::int32_t kSubscriptOutOfRange = 9;
constexpr std::int32_t kKeyExists = 457;

}  // namespace

Dictionary::~Dictionary() {
  releaseNested(entries_);
}

void Dictionary::Add(std::string key, Variant value) {
  if (index_.contains(key)) {
    throw AutomationError(kKeyExists,
                          "This key is already associated with an element of this collection",
                          AutomationError::kRuntimeSource);
  }
  index_.emplace(key, entries_.size());
  entries_.emplace_back(std::move(key), std::move(value));
}

const Variant& Dictionary::Item(std::string_view key) const {
  const auto it = index_.find(std::string(key));
  if (it == index_.end()) {
    throw AutomationError(AutomationError::kInvalidProcedureCall,
                          "Key not found: '" + std::string(key) + "'",
                          AutomationError::kRuntimeSource);
  }
  return entries_[it->second].second;
}

void Dictionary::SetItem(std::string key, Variant value) {
  if (const auto it = index_.find(key); it != index_.end()) {
    entries_[it->second].second = std::move(value);
  } else {
    Add(std::move(key), std::move(value));
  }
}

bool Dictionary::Exists(std::string_view key) const {
  return index_.contains(std::string(key));
}

std::vector<std::string> Dictionary::Keys() const {
  std::vector<std::string> keys;
  keys.reserve(entries_.size());
  for (const Entry& e : entries_)
    keys.push_back(e.first);
  return keys;
}

std::vector<Variant> Dictionary::Items() const {
  std::vector<Variant> items;
  items.reserve(entries_.size());
  for (const Entry& e : entries_)
    items.push_back(e.second);
  return items;
}

std::vector<Variant> Dictionary::keyList() const {
  std::vector<Variant> keys;
  keys.reserve(entries_.size());
  for (const Entry& e : entries_)
    keys.emplace_back(e.first);
  return keys;
}

Variant Dictionary::itemOf(const Variant& key) const {
  return Item(toText(key));
}

Collection::~Collection() {
  releaseNested(items_);
}

const Variant& Collection::Item(std::int32_t index) const {
  if (index < 1 || index > Count()) {
    throw AutomationError(kSubscriptOutOfRange, "Subscript out of range",
                          AutomationError::kRuntimeSource);
  }
  return items_[static_cast<std::size_t>(index - 1)];
}

}  // namespace varnock
