// SPDX-License-Identifier: MIT
// Binding a late-bound call's arguments to a member's declared arguments:
// positional and named values, defaults for omitted optional ones, conversion
// to the declared types, and the write-back of by-reference arguments.
#pragma once

#include <array>

#include "catalogue/members.h"
#include "varnock/host.h"

namespace varnock::host {

// No member declares more arguments than this.
inline constexpr std::size_t kMaxArguments = 4;

struct BoundArguments {
  std::array<Variant, kMaxArguments> values;
};

// Raises the dispatch failures that Invoke documents.
void bindArguments(const catalogue::Member& member, const DispatchArguments& given,
                   BoundArguments& bound);

// Copies the final values of by-reference arguments back to where the caller
// gave them.
void writeBack(const catalogue::Member& member, const BoundArguments& bound,
               DispatchArguments& given);

}  // namespace varnock::host
