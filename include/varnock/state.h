// SPDX-License-Identifier: MIT
// State: a record object over one row of the register's State table: its
// column properties and its data methods, in interface order. Generated
// from the table catalogue by tools/generate_classes.cpp; change the catalogue
// or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/collection.h"
#include "varnock/export.h"
#include "varnock/record.h"
#include "varnock/variant.h"

VARNOCK_PUBLIC_BEGIN
namespace varnock {

class State final : public Record {
 public:
  State() : Record("State") {}

  // State: nvarchar, Null refused.
  Variant get_State() const;
  void put_State(const Variant& value);

  bool GetState(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstState(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastState(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastState(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetNextState(std::int32_t lngOffset, std::string_view strWhereClause = {},
                    std::string_view strOrderClause = {});
  bool GetPreviousState(std::int32_t lngOffset, std::string_view strWhereClause = {},
                        std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryState(std::string_view strWhereClause = {},
                                            std::string_view strOrderClause = {},
                                            const Variant& lngOffset = Variant(1),
                                            const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryState(std::string_view strWhereClause = {});
  bool AddState();
  bool UpdateState();
  bool DeleteState(std::string_view strWhereClause = {});
};

}  // namespace varnock
VARNOCK_PUBLIC_END
