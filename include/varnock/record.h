// SPDX-License-Identifier: MIT
// Record: what the eleven record classes (Country ... ZonePool) have in
// common. A record object holds one row of its table as checked column
// values, the connection string its database operations open (DSN), and the
// text of its last error. Each class (varnock/user.h ...) adds its column
// properties and its data methods. One caller at a time; objects share
// nothing but constants.
//
//   varnock::User user;
//   user.put_Authorized("maybe");  // refused: not a bit; one event is written
//   assert(user.GetLastErrorMessage() == "Cannot convert this value to bit");
//   assert(user.get_Authorized().isNull());  // the column keeps its value
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "varnock/collection.h"
#include "varnock/dictionary.h"
#include "varnock/export.h"
#include "varnock/variant.h"

// The library's own parts that Record lets in; declared outside the public
// block so that the shared library does not export them.
namespace varnock {
namespace catalogue {
struct Table;
}
class RecordInternal;
}  // namespace varnock

VARNOCK_PUBLIC_BEGIN
namespace varnock {

class Record : public Object {
 public:
  // The connection string of every new object: SQL Server's OLE DB provider
  // on the local Tolvane_Register, ending in four blanks, the login "sa"
  // and twelve blanks, which are kept as they stand.
  static const std::string& defaultConnectionString();

  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;
  ~Record() override;

  // The connection string that every data method opens; assigned unchecked
  // (the empty string included).
  std::string get_DSN() const { return *dsn_; }
  void put_DSN(std::string value);

  // The table name without brackets ("GroupMember").
  std::string GetTableName() const;

  // The description of the most recent refusal or failure; "" on a new
  // object. A later success does not clear it as such. Two things do:
  // SetDataProperty clears it before it assigns, and a Null stored in a
  // column that allows Null clears it, whether assigned or loaded with a row
  // (so a Get<T> of a row with such a Null clears it).
  std::string GetLastErrorMessage() const { return lastError_; }

  // Columns by name, for code that does not know the class. Names are the
  // field names ("UserName"); they match without regard to case except where
  // blnCaseSensitive asks for an exact match.
  bool IsDataProperty(std::string_view strPropertyName, bool blnCaseSensitive = false) const;
  // The column's value, or Empty (with a message and event 17) for an unknown name.
  Variant GetDataProperty(std::string_view strPropertyName);
  // Clears the last error message, then assigns through the column's checks;
  // true if the value was stored. Run-time errors are trapped and reported.
  bool SetDataProperty(std::string_view strPropertyName, const Variant& varPropertyValue);
  // A new dictionary of every column: field name -> value, in column order.
  std::shared_ptr<Dictionary> GetDictionary() const;
  // Assigns each entry of a KeyedContainer through SetDataProperty, in the
  // container's order, stopping at the first refusal; true if all were stored.
  bool SetDictionary(const Variant& varDict);

  // The class name: the table name.
  std::string_view typeName() const override;

 protected:
  // `tableName` must be one of the eleven tables of the register.
  explicit Record(std::string_view tableName);

 private:
  friend class RecordInternal;  // the layers that run the data methods

  const catalogue::Table* table_;
  std::shared_ptr<const std::string> dsn_;  // shared with other objects until replaced
  std::string lastError_;
  std::vector<Variant> values_;
};

}  // namespace varnock
VARNOCK_PUBLIC_END
