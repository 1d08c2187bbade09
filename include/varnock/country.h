// Country: a record object over one row of the register's Country table.
// Generated from the table catalogue by tools/generate_classes.cpp; change the
// catalogue or the generator, not this file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/record.h"

namespace varnock {

class Country final : public Record {
 public:
  Country() : Record("Country") {}

  // Country: nvarchar, Null refused.
  Variant get_Country() const { return column(0); }
  void put_Country(const Variant& value) { assign(0, value); }

  bool GetCountry(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return lookUp(strWhereClause, strOrderClause);
  }
  bool GetFirstCountry(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    return loadFirst(strWhereClause, strOrderClause);
  }
  // Reverses strOrderClause in place, so the caller sees the order used.
  bool GetLastCountry(std::string_view strWhereClause, std::string& strOrderClause) {
    return loadLast(strWhereClause, strOrderClause);
  }
  bool GetLastCountry(std::string_view strWhereClause = {}, std::string_view strOrderClause = {}) {
    std::string order(strOrderClause);
    return loadLast(strWhereClause, order);
  }
  bool GetNextCountry(std::int32_t lngOffset, std::string_view strWhereClause = {},
                      std::string_view strOrderClause = {}) {
    return loadNext(lngOffset, strWhereClause, strOrderClause);
  }
  bool GetPreviousCountry(std::int32_t lngOffset, std::string_view strWhereClause = {},
                          std::string_view strOrderClause = {}) {
    return loadPrevious(lngOffset, strWhereClause, strOrderClause);
  }
  std::shared_ptr<Collection> GetEveryCountry(std::string_view strWhereClause = {},
                                              std::string_view strOrderClause = {},
                                              const Variant& lngOffset = Variant(1),
                                              const Variant& lngNumRecords = Variant(0)) {
    return listEvery(strWhereClause, strOrderClause, lngOffset, lngNumRecords);
  }
  std::int32_t CountEveryCountry(std::string_view strWhereClause = {}) {
    return countEvery(strWhereClause);
  }
  bool AddCountry() { return insertRow(); }
  bool UpdateCountry() { return updateRow(); }
  bool DeleteCountry(std::string_view strWhereClause = {}) { return deleteRows(strWhereClause); }
};

}  // namespace varnock
