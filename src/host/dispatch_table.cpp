// SPDX-License-Identifier: MIT
#include "host/dispatch_table.h"

#include <vector>

#include "varnock/host.h"

namespace varnock::host {

namespace {

using catalogue::kPropertyDispatchBase;

struct DispatchTable {
  // Member positions by property offset (identifier - kPropertyDispatchBase); -1 where absent.
  std::vector<int> propertyGet, propertyPut;
  // Member positions by method offset (identifier - methodBase).
  std::vector<int> methods;
  std::int32_t methodBase = 0;
};

DispatchTable build(const catalogue::Table& table) {
  DispatchTable d;
  const std::size_t properties = table.columns.size() + 1;  // the columns and DSN
  d.propertyGet.assign(properties, -1);
  d.propertyPut.assign(properties, -1);
  d.methodBase = catalogue::firstMethodDispatchId(table.columns.size());
  for (std::size_t i = 0; i < table.members.size(); ++i) {
    const catalogue::Member& m = table.members[i];
    const int position = static_cast<int>(i);
    switch (m.kind) {
      case catalogue::InvokeKind::PropertyGet:
        d.propertyGet[static_cast<std::size_t>(m.dispatchId - kPropertyDispatchBase)] = position;
        break;
      case catalogue::InvokeKind::PropertyPut:
        d.propertyPut[static_cast<std::size_t>(m.dispatchId - kPropertyDispatchBase)] = position;
        break;
      case catalogue::InvokeKind::Method: {
        const auto offset = static_cast<std::size_t>(m.dispatchId - d.methodBase);
        if (d.methods.size() <= offset) d.methods.resize(offset + 1, -1);
        d.methods[offset] = position;
        break;
      }
    }
  }
  return d;
}

const DispatchTable& dispatchTableOf(const catalogue::Table& table) {
  static const std::vector<DispatchTable> all = [] {
    std::vector<DispatchTable> tables;
    for (const catalogue::Table& t : catalogue::tables())
      tables.push_back(build(t));
    return tables;
  }();
  return all[static_cast<std::size_t>(&table - catalogue::tables().data())];
}

int lookUp(const std::vector<int>& positions, std::int64_t offset) {
  if (offset < 0 || offset >= static_cast<std::int64_t>(positions.size())) return -1;
  return positions[static_cast<std::size_t>(offset)];
}

}  // namespace

const catalogue::Member* findMember(const catalogue::Table& table, std::int32_t dispatchId,
                                    std::uint16_t kind) {
  const DispatchTable& d = dispatchTableOf(table);
  int position = -1;
  const std::int64_t propertyOffset = std::int64_t{dispatchId} - kPropertyDispatchBase;
  if (propertyOffset >= 0 && propertyOffset < static_cast<std::int64_t>(d.propertyGet.size())) {
    if (kind & kDispatchPropertyPut) {
      position = lookUp(d.propertyPut, propertyOffset);
    } else if (kind & (kDispatchPropertyGet | kDispatchMethod)) {
      position = lookUp(d.propertyGet, propertyOffset);
    }
  } else if (kind & (kDispatchMethod | kDispatchPropertyGet)) {
    position = lookUp(d.methods, std::int64_t{dispatchId} - d.methodBase);
  }
  return position < 0 ? nullptr : &table.members[static_cast<std::size_t>(position)];
}

}  // namespace varnock::host
