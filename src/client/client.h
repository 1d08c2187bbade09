// The database client: what record objects use to reach the register, with
// exactly the operations they need. A Connection is created unopened, opened
// with an OLE DB style connection string (whose Provider key picks the
// provider), executes statement texts into forward-only Recordsets, and is
// closed. Failures raise AutomationError with a number, a description and a
// source naming the provider. Objects are used by one caller at a time.
//
//   auto connection = client::createConnection();
//   connection->open("Provider=SQLite;Data Source=/srv/register.db");
//   auto rows = connection->execute("SELECT * FROM [Country]");
//   for (; !rows->eof(); rows->moveNext()) use(rows->field("Country"));
#pragma once

#include <memory>
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

// The rows a statement produced, read forwards once.
class Recordset {
 public:
  virtual ~Recordset() = default;
  // True when no current row is left (at once for a statement without rows).
  virtual bool eof() const = 0;
  // The current row's value of the first field of that name (any case);
  // Null for a database NULL. No current row raises kNoCurrentRecord, an
  // unknown name kItemNotFound.
  virtual Variant field(std::string_view name) const = 0;
  virtual void moveNext() = 0;
};

class Connection {
 public:
  virtual ~Connection() = default;
  virtual void open(std::string_view connectionString) = 0;
  // Runs one statement; the result is positioned on its first row.
  virtual std::unique_ptr<Recordset> execute(std::string_view statement) = 0;
  // Closing twice, or closing what never opened, is harmless.
  virtual void close() = 0;
};

// A new, unopened connection; the provider is chosen when it opens.
std::unique_ptr<Connection> createConnection();

}  // namespace varnock::client
