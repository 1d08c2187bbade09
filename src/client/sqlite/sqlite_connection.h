// SPDX-License-Identifier: MIT
// A session on one register file. It opens an existing file only (a path
// that names none fails, and no file is made), enforces foreign keys, waits
// for a register that another process is writing, and runs one statement at
// a time after carrying it over from SQL Server's dialect.
//
// Between the calls it serves it keeps what the next call would do again:
// statements carried over, by their text, and prepared statements, by their
// text with the literal values taken out as parameters. It serves again only
// while its path still names the file it opened.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "automation/text.h"
#include "client/dialect/parameterised_statement.h"
#include "client/dialect/register_schema.h"
#include "client/provider.h"
#include "client/sqlite/statement_cache.h"
#include "platform/files.h"

namespace varnock::client::sqlite {

class LargeLiterals;

class SqliteConnection final : public Session {
 public:
  // Opens the database file at `path`; raises kCannotOpen when it cannot.
  explicit SqliteConnection(const std::string& path);

  std::unique_ptr<Recordset> execute(std::string_view statement) override;
  void close() noexcept override;
  bool reusable() noexcept override;
  bool current() noexcept override;

 private:
  // A statement as it is prepared: parameterised where literals may be
  // parameters, otherwise as carried over.
  struct Plan {
    std::string prepared;
    std::vector<dialect::LiteralValue> values;
    std::string carriedOver;  // literals in place
  };

  Plan planOf(std::string_view statement, int firstNumber) const;
  std::unique_ptr<Recordset> run(Plan& plan, const LargeLiterals* large);
  PreparedStatement prepare(Plan& plan);
  void followSchemaChange(PreparedStatement& ran);

  std::string path_;
  std::optional<platform::FileIdentity> identity_;  // of the file opened
  std::shared_ptr<StatementCache> statements_;
  std::shared_ptr<const dialect::RegisterSchema> schema_;  // as the database declares it
  long long schemaVersion_ = 0;                            // of schema_
  bool wrote_ = false;                                     // since the session last served
  bool damaged_ = false;                                   // a read or write of the file failed
  std::uint64_t failuresSeen_;  // damaged sessions in the process when last current
  std::unordered_map<std::string, Plan, TextHash, std::equal_to<>> plans_;  // by statement
};

// Opens `path` read-write with the register's connection settings; raises
// kCannotOpen with SQLite's message when it cannot.
DatabaseHandle openDatabase(const std::string& path);

}  // namespace varnock::client::sqlite
