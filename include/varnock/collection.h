// SPDX-License-Identifier: MIT
// Collection: the ordered, keyless, one-based collection that the listing
// methods return, each item a new record object on the lister's DSN. One owner
// at a time.
//
//   varnock::User user;
//   user.put_DSN(varnock::createRegister("users.db"));  // a new, empty register
//   std::shared_ptr<varnock::Collection> users = user.GetEveryUser("", "Lastname");
//   for (const varnock::Variant& item : *users) {
//     auto each = std::dynamic_pointer_cast<varnock::User>(item.asObject());
//     std::cout << varnock::toText(each->get_Lastname()) << "\n";
//   }
//   if (users->Count() > 0) users->Item(1);  // the first; 0 or past the end raises error 9
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "varnock/export.h"
#include "varnock/variant.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

class Collection final : public Object {
 public:
  Collection() = default;
  // Releases nested containers without recursing once per level.
  ~Collection() override;

  std::string_view typeName() const override { return "Collection"; }

  void Add(Variant item) { items_.push_back(std::move(item)); }
  // Items count from 1; an index outside 1..Count() raises AutomationError 9.
  const Variant& Item(std::int32_t index) const;
  std::int32_t Count() const noexcept { return static_cast<std::int32_t>(items_.size()); }
  void reserve(std::size_t count) { items_.reserve(count); }

  std::vector<Variant>::const_iterator begin() const noexcept { return items_.begin(); }
  std::vector<Variant>::const_iterator end() const noexcept { return items_.end(); }

 private:
  std::vector<Variant> items_;
};

}  // namespace varnock
VARNOCK_PUBLIC_END
