// Record: what the eleven record classes (Country ... ZonePool) have in
// common. A record object holds one row of its table as checked column
// values, the connection string its database operations open (DSN), and the
// text of its last error. Refused values are never raised: they set the last
// error message and write an event log entry, and the column keeps its value.
// One caller at a time; objects share nothing but constants.
//
//   varnock::User user;
//   user.put_Authorized("maybe");   // refused: "Cannot convert this value to bit"
//   user.GetLastErrorMessage();     // that message; user.get_Authorized() is still Null
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "varnock/collection.h"
#include "varnock/dictionary.h"
#include "varnock/variant.h"

namespace varnock {

namespace catalogue {
struct Table;
}
class RecordState;

class Record : public Object {
 public:
  // The connection string of every new object: SQL Server's OLE DB provider
  // on the local Tolvane_Register, ending in four blanks, the login "sa"
  // and twelve blanks, which are kept as they stand.
  static const std::string& defaultConnectionString();

  Record(const Record&) = delete;
  Record& operator=(const Record&) = delete;

  // The connection string; assigned unchecked (the empty string included).
  std::string get_DSN() const { return *dsn_; }
  void put_DSN(std::string value);

  // The table name without brackets ("GroupMember").
  std::string GetTableName() const;

  // The most recent refusal or failure; "" on a new object. A later success
  // does not clear it; only a Null assigned to a column that allows Null does.
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

  // The reading operations of every class, which each class offers under its
  // own names (GetUser, GetFirstUser, ... CountEveryUser). Conditions are SQL
  // without WHERE, orders SQL without ORDER BY; empty means none. Failures
  // return false (or an empty collection), store the description as the last
  // error message and write one event named after the class's method; only a
  // failed event log write raises. countEvery raises its failures instead.
  bool lookUp(std::string_view where, std::string_view order);
  bool loadFirst(std::string_view where, std::string_view order);
  // Reverses `order` in place (the caller sees the rewritten order), then loads the first row.
  bool loadLast(std::string_view where, std::string& order);
  bool loadNext(std::int32_t offset, std::string_view where, std::string_view order);
  bool loadPrevious(std::int32_t offset, std::string_view where, std::string_view order);
  std::shared_ptr<Collection> listEvery(std::string_view where, std::string_view order,
                                        const Variant& offset, const Variant& numRecords);
  std::int32_t countEvery(std::string_view where);

  // The writing operations (AddUser, UpdateUser, DeleteUser, ...): true on
  // success; failures as for reading. deleteRows with an empty condition
  // first looks the row up by its key (reloading the object) and deletes
  // nothing when there is none; with a condition it deletes what matches.
  bool insertRow();
  bool updateRow();
  bool deleteRows(std::string_view where);

  // The relation operations, by the relation's position among the table's
  // relations (GetParentInUser, GetChildrenInGroupMember, ...). A failed
  // parent lookup or listing returns nullptr, a failed count 0; each reports
  // as the other operations do.
  std::shared_ptr<Record> parentIn(std::size_t relation);
  std::shared_ptr<Collection> childrenIn(std::size_t relation, std::string_view where,
                                         std::string_view order);
  std::int32_t countChildrenIn(std::size_t relation);
  std::shared_ptr<Collection> derivedChildrenIn(std::size_t relation, std::string_view where,
                                                std::string_view order);
  std::int32_t countDerivedChildrenIn(std::size_t relation, std::string_view where,
                                      std::string_view order);

  // Columns by position, in the table's column order. An out-of-range
  // position raises AutomationError 5.
  std::size_t columnCount() const noexcept { return values_.size(); }
  Variant column(std::size_t position) const;
  // Checks and stores a copy of the value, or refuses it (see above). Raises
  // only when the event log entry of a refusal cannot be written.
  void assign(std::size_t position, const Variant& value);

  const catalogue::Table& table() const noexcept { return *table_; }
  std::string_view typeName() const override;

 protected:
  // `tableName` must be one of the eleven tables of the register.
  explicit Record(std::string_view tableName);

 private:
  friend class RecordState;

  const catalogue::Table* table_;
  std::shared_ptr<const std::string> dsn_;  // shared with other objects until replaced
  std::string lastError_;
  std::vector<Variant> values_;
};

}  // namespace varnock
