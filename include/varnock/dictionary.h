// SPDX-License-Identifier: MIT
// Dictionary: the ordered dictionary of text keys to Variant values that
// GetDictionary returns and SetDictionary takes. Keys keep their insertion
// order and compare exactly (case matters). KeyedContainer is what
// SetDictionary reads: anything that lists its keys and gives the item of a
// key, so script hosts can pass their own mappings. One owner at a time.
//
//   auto d = std::make_shared<varnock::Dictionary>();
//   d->Add("UserName", "jdoe");
//   for (const auto& [key, value] : *d) std::cout << key << "\n";  // insertion order
//   varnock::User user;
//   assert(user.SetDictionary(d) && user.get_Username() == varnock::Variant("jdoe"));
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "varnock/export.h"
#include "varnock/variant.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

class KeyedContainer : public Object {
 public:
  // The keys in the container's own order.
  virtual std::vector<Variant> keyList() const = 0;
  // The item of one of those keys. Failures raise AutomationError.
  virtual Variant itemOf(const Variant& key) const = 0;
};

class Dictionary final : public KeyedContainer {
 public:
  using Entry = std::pair<std::string, Variant>;

  Dictionary() = default;
  // Releases nested containers without recursing once per level.
  ~Dictionary() override;

  std::string_view typeName() const override { return "Dictionary"; }

  // Adds a new key; an existing key raises AutomationError 457.
  void Add(std::string key, Variant value);
  // The item of a key; a missing key raises AutomationError 5.
  const Variant& Item(std::string_view key) const;
  // Replaces the item of a key, or adds the key.
  void SetItem(std::string key, Variant value);
  bool Exists(std::string_view key) const;
  std::vector<std::string> Keys() const;
  std::vector<Variant> Items() const;
  std::int32_t Count() const noexcept { return static_cast<std::int32_t>(entries_.size()); }

  std::vector<Entry>::const_iterator begin() const noexcept { return entries_.begin(); }
  std::vector<Entry>::const_iterator end() const noexcept { return entries_.end(); }

  std::vector<Variant> keyList() const override;
  // Keys are converted to text, as a script's dictionary would.
  Variant itemOf(const Variant& key) const override;

 private:
  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t> index_;  // key -> position in entries_
};

}  // namespace varnock
VARNOCK_PUBLIC_END
