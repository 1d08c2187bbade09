// SPDX-License-Identifier: MIT
// The database client: what record objects use to reach the register, with
// exactly the operations they need. A connection is opened with an OLE DB
// style connection string, whose Provider key picks the provider; it executes
// statement texts into forward-only Recordsets and is closed. Failures raise
// AutomationError with a number, a description and a source naming the
// provider. Objects are used by one caller at a time.
//
//   auto connection = client::open("Provider=SQLite;Data Source=/srv/register.db");
//   auto rows = connection->execute("SELECT * FROM [Country]");
//   for (; !rows->eof(); rows->moveNext()) use(rows->field("Country"));
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "varnock/variant.h"

namespace varnock::client {

// Numbers of the client's own failures.
inline constexpr std::int32_t kNoCurrentRecord = 3021;
inline constexpr std::int32_t kItemNotFound = 3265;
inline constexpr std::int32_t kProviderNotFound = 3706;
inline constexpr std::int32_t kConnectionClosed = 3704;
inline constexpr std::int32_t kCannotOpen = static_cast<std::int32_t>(0x80004005u);
inline constexpr std::int32_t kCommandFailed = static_cast<std::int32_t>(0x80040E14u);

inline constexpr const char* kNoCurrentRecordText =
    "Either BOF or EOF is True, or the current record has been deleted. Requested operation "
    "requires a current record.";
inline constexpr const char* kItemNotFoundText =
    "Item cannot be found in the collection corresponding to the requested name or ordinal.";
inline constexpr const char* kConnectionClosedText =
    "Operation is not allowed when the object is closed.";
// Refusals that every provider words alike: a command runs one statement.
inline constexpr const char* kSeveralStatementsText =
    "The command text holds more than one statement; the register runs one at a time.";
inline constexpr const char* kNoStatementText = "The command text holds no statement.";

// The rows a statement produced, read forwards once. They stay readable after
// the connection that produced them has closed.
class Recordset {
 public:
  virtual ~Recordset() = default;
  // True when no current row is left (at once for a statement without rows).
  virtual bool eof() const = 0;
  // The current row's value of the first field of that name (any case);
  // Null for a database NULL. No current row raises kNoCurrentRecord, an
  // unknown name kItemNotFound.
  virtual Variant field(std::string_view name) const = 0;
  // Past the last row raises kNoCurrentRecord.
  virtual void moveNext() = 0;
};

// An open connection to one database. Providers make them open; there is no
// unopened state.
class Connection {
 public:
  virtual ~Connection() = default;
  // Runs one statement written in SQL Server's dialect, as the database
  // would run it there; the result is positioned on its first row. After
  // close() it raises kConnectionClosed.
  virtual std::unique_ptr<Recordset> execute(std::string_view statement) = 0;
  // Closing twice is harmless. Never throws.
  virtual void close() noexcept = 0;
};

// Opens a connection to an existing database with the provider the
// connection string names. An unknown provider raises kProviderNotFound;
// what the provider cannot open raises the provider's own failure.
std::unique_ptr<Connection> open(std::string_view connectionString);

// The script, in a database's own dialect, that fills a new database of
// that kind ("SQLite"); it raises when it has none for the kind.
using ScriptForKind = std::function<std::string(std::string_view databaseKind)>;

// Creates a new database where the connection string points (never over an
// existing one) and runs the script that `scriptFor` gives for its kind. On
// failure it raises and leaves nothing of what it began.
void create(std::string_view connectionString, const ScriptForKind& scriptFor);

}  // namespace varnock::client
