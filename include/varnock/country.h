// SPDX-License-Identifier: MIT
// Country: a record object over one row of the register's Country table: its
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

class Country final : public Record {
 public:
  Country() : Record("Country") {}

  // Country: nvarchar, Null refused.
  Variant get_Country() const;
  void put_Country(const Variant& value);

  bool GetCountry(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetFirstCountry(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});

  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastCountry(std::string_view strWhereClause, std::string& strOrderClause);
  bool GetLastCountry(std::string_view strWhereClause = {}, std::string_view strOrderClause = {});
  bool GetNextCountry(std::int32_t lngOffset, std::string_view strWhereClause = {},
                      std::string_view strOrderClause = {});
  bool GetPreviousCountry(std::int32_t lngOffset, std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {});
  std::shared_ptr<Collection> GetEveryCountry(std::string_view strWhereClause = {},
                                              std::string_view strOrderClause = {},
                                              const Variant& lngOffset = Variant(1),
                                              const Variant& lngNumRecords = Variant(0));
  std::int32_t CountEveryCountry(std::string_view strWhereClause = {});
  bool AddCountry();
  bool UpdateCountry();
  bool DeleteCountry(std::string_view strWhereClause = {});
};

}  // namespace varnock
VARNOCK_PUBLIC_END
