// Test hook: the back ends the provider conformance suite runs on. Each is one
// struct, and a new provider joins the suite by adding one here and naming it
// in BackEnds below. A back end offers:
//
//   static constexpr const char* kName;     its name in test names and logs
//   static constexpr const char* kSource;   the source its failures carry
//   static constexpr std::int32_t kCannotOpenNumber;  what a failed open raises
//   static constexpr std::int32_t kRejectedNumber;    what a rejected statement raises
//   static constexpr const char* kOdbcDriver;  the ODBC driver it needs, or nullptr;
//                                           without it the cases are skipped
//   BackEnd();  ~BackEnd();                 a fresh, empty register, then gone
//   std::string connectionString() const;   opens that register
//   std::string unopenableConnectionString() const;  its provider, but no register
//   void expect(std::string_view statement, std::vector<Row> rows);
//   void expectFailure(std::string_view statement);
//   void verify() const;                    after each case
//
// The suite announces every statement it runs, in order, with expect() (the
// rows it gives, none for a write) or expectFailure(). A real database
// ignores that and computes them; the recording double answers with them.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "client/client.h"
#include "support/recording_provider.h"
#include "support/temp_register.h"

namespace varnock::client::conformance {

using testing::Row;

// The embedded SQLite provider on a register file of its own.
struct SqliteBackEnd {
  static constexpr const char* kName = "SQLite";
  // Every failure names the provider, whatever SQLite itself reported.
  static constexpr const char* kSource = "Varnock.SQLite";
  // A file it cannot open, or one that is no database.
  static constexpr std::int32_t kCannotOpenNumber = kCannotOpen;
  // Everything the database refuses, from syntax to constraints, is one number.
  static constexpr std::int32_t kRejectedNumber = kCommandFailed;
  static constexpr const char* kOdbcDriver = nullptr;

  // A new register made by the register layer, as a user would make one.
  std::string connectionString() const { return register_.dsn(); }
  // Opening never makes a file, so a missing one stays unopenable.
  std::string unopenableConnectionString() const {
    return "Provider=SQLite;Data Source=" + (register_.folder() / "missing.db").string();
  }
  // The database computes rows and failures itself. It knows the columns of
  // a statement without rows too: asking a write's rows for a field is an
  // unknown name (kItemNotFound) before it is a missing row.
  void expect(std::string_view, const std::vector<Row>&) {}
  void expectFailure(std::string_view) {}
  void verify() const {}

 private:
  testing::TempRegister register_;  // removed with the back end
};

// An SQLite register reached through ODBC and the SQLite3 driver, with a
// connection string that names no provider (ADO's default, MSDASQL).
struct SqliteOdbcBackEnd {
  static constexpr const char* kName = "SqliteOdbc";
  // The provider as ADO names it, whatever the driver.
  static constexpr const char* kSource = "Microsoft OLE DB Provider for ODBC Drivers";
  static constexpr std::int32_t kCannotOpenNumber = kCannotOpen;
  // The SQLite driver reports every refusal as a general error (HY000),
  // which ADO raises as E_FAIL, unlike SQL Server's syntax errors (42000).
  static constexpr std::int32_t kRejectedNumber = kCannotOpen;
  static constexpr const char* kOdbcDriver = "SQLite3";

  std::string connectionString() const { return "Driver=SQLite3;Database=" + path(); }
  // The driver makes a missing file, but not a missing folder.
  std::string unopenableConnectionString() const {
    return "Driver=SQLite3;Database=" + (register_.folder() / "missing" / "x.db").string();
  }
  void expect(std::string_view, const std::vector<Row>&) {}
  void expectFailure(std::string_view) {}
  void verify() const {}

 private:
  std::string path() const { return register_.path().string(); }
  testing::TempRegister register_;  // made by the native provider, removed with the back end
};

// The recording double behind the data methods' own tests.
struct RecordingBackEnd {
  static constexpr const char* kName = "Recording";
  static constexpr const char* kSource = testing::kRecordingSource;
  // "Fail=1" fails at open with this number.
  static constexpr std::int32_t kCannotOpenNumber = kCannotOpen;
  // It cannot judge SQL: a rejection raises what expectFailure() scripts,
  // SQL Server's number for a statement it refuses.
  static constexpr std::int32_t kRejectedNumber = kCommandFailed;
  static constexpr const char* kOdbcDriver = nullptr;

  // Registering again resets the one script every connection answers from.
  RecordingBackEnd() { testing::registerRecordingProvider(); }

  // No database behind it: any connection reaches the same script.
  std::string connectionString() const { return "Provider=Recording"; }
  std::string unopenableConnectionString() const { return "Provider=Recording;Fail=1"; }
  // It holds no data, so a write is seen later only as far as the suite
  // tells it what later statements give. Rows without fields know no names,
  // so reading a field there is a missing row (kNoCurrentRecord).
  void expect(std::string_view statement, std::vector<Row> rows) {
    announced_.emplace_back(statement);
    script().answers.emplace_back(std::move(rows));
  }
  void expectFailure(std::string_view statement) {
    announced_.emplace_back(statement);
    script().answers.emplace_back(
        AutomationError(kRejectedNumber, "Incorrect syntax near 'x'.", kSource));
  }
  // Answers go out in order whatever the statement, so a case that runs a
  // statement it did not announce would read another statement's rows.
  void verify() const {
    EXPECT_EQ(script().statements, announced_);
    EXPECT_TRUE(script().answers.empty()) << "answers left over";
  }

 private:
  static testing::RecordingScript& script() { return testing::RecordingScript::instance(); }

  std::vector<std::string> announced_;  // every statement the suite ran, in order
};

using BackEnds = ::testing::Types<SqliteBackEnd, SqliteOdbcBackEnd, RecordingBackEnd>;

// Names each typed case after its back end ("ProviderConformance/SQLite.").
struct BackEndNames {
  template <class BackEnd>
  static std::string GetName(int) {
    return BackEnd::kName;
  }
};

}  // namespace varnock::client::conformance
