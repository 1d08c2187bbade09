// SPDX-License-Identifier: MIT
// The table catalogue: every per-table fact of the register, held as data.
// One Table per table of Tolvane_Register, in type-library order; nothing
// per-table is written anywhere else. Built once on first use, immutable
// afterwards and safe to read from any thread.
//
//   const catalogue::Table& user = catalogue::table("User");
//   user.columns[0].field == "UserName";  user.defaultOrder == "UserName DESC";
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/members.h"

namespace varnock::catalogue {

// The SQL types the register's columns use.
enum class SqlType : std::uint8_t { Nvarchar, Ntext, Int, Bit, Smalldatetime };

// "nvarchar", "ntext", "int", "bit" or "smalldatetime".
std::string_view sqlTypeName(SqlType type);

struct Column {
  std::string_view property;  // name of the column property ("Username")
  std::string_view field;     // name in SQL, result rows, messages and dictionaries ("UserName")
  SqlType type;
  // The length the register declares for an nvarchar column (values are not
  // checked against it); 0 for the other types.
  std::uint16_t length;
  bool nullRefused;
};

enum class RelationKind : std::uint8_t { Parent, Children, DerivedChildren };

// A relation from this table to another one. Parent and children relations
// join `joinField` of both tables; a derived relation joins `joinField` of
// this table to the link table `through`, and the link table's `farField` to
// the far table.
struct Relation {
  RelationKind kind;
  std::string_view other;  // the parent, child or far table
  std::string_view through;
  std::string_view joinField;
  std::string_view farField;
  // Derived relations only: whether the list method takes where and order,
  // and whether the join goes through this table too (three tables) rather
  // than testing the key on the link table alone.
  bool listTakesArguments;
  bool joinsOwnTable;
};

struct Table {
  std::string_view name;
  std::span<const Column> columns;
  // Positions of the key columns in `columns`, in key order.
  std::span<const std::uint8_t> keyColumns;
  // Tables whose key is the whole row (ErrorLog, LogFile) have no
  // navigation column and no key that an update could use.
  bool wholeRowKey;
  std::string_view navigationColumn;    // empty when wholeRowKey
  std::span<const Relation> relations;  // in interface order
  std::string_view classId;
  std::string_view interfaceId;

  // Derived from the facts above when the catalogue is built.
  std::string progId;                   // "Varnock.User"
  std::string interfaceName;            // "_User"
  std::string defaultOrder;             // navigation column + " DESC"
  std::string fileStem;                 // "zone_address": the class's header is varnock/<stem>.h
  std::string nameList;                 // each field name followed by NUL
  std::vector<std::string> matchNames;  // property names in lower case
  std::vector<Member> members;          // the dispatch interface, in order

  // Position of the column whose lower-cased property name is `folded`, or -1.
  int findColumn(std::string_view folded) const;
};

// The type library's identity.
inline constexpr std::string_view kLibraryName = "Varnock";
inline constexpr std::string_view kLibraryId = "{BE18E3A5-D64D-4890-8383-3F4953890749}";

// All eleven tables, in type-library order.
const std::vector<Table>& tables();

// The table of that exact name; nullptr when there is none.
const Table* findTable(std::string_view name);

// The table of that exact name; the name must be one of the eleven.
const Table& table(std::string_view name);

}  // namespace varnock::catalogue
