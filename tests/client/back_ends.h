// SPDX-License-Identifier: MIT
// Test hook: the back ends the provider conformance suite runs on. Each is one
// struct, and a new provider joins the suite by adding one here and naming it
// in BackEnds below. A back end offers:
//
//   static constexpr const char* kName;     its name in test names and logs
//   static std::string source();           the source its failures carry
//   static std::int32_t cannotOpenNumber(); what a failed open raises
//   static std::int32_t rejectedNumber();   what a rejected statement raises
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
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "client/client.h"
#include "support/back_end.h"
#include "support/recording_provider.h"
#include "support/temp_register.h"

namespace varnock::client::conformance {

using testing::Row;

// A real register of the back end the program runs on (support/back_end.h):
// the embedded SQLite provider, SQLite's ODBC driver or PostgreSQL's. The
// register test program runs the suite once per back end.
struct RegisterBackEnd {
  static constexpr const char* kName = "Register";
  // The program checks at its start that its back end can run here.
  static constexpr const char* kOdbcDriver = nullptr;

  // Every failure names the provider, whatever the database reported: the
  // embedded one, or ODBC's as ADO names it.
  static std::string source() { return testing::providerSource(); }
  // A file it cannot open, one that is no database, a database that is not
  // there: the provider's failure to open.
  static std::int32_t cannotOpenNumber() { return kCannotOpen; }
  // What the database refuses. The embedded provider raises one number for
  // every refusal; through ODBC the number follows the SQLSTATE, and SQLite's
  // driver reports every refusal as a general error (HY000, E_FAIL) where
  // PostgreSQL's names a missing table (42P01, a refused command).
  static std::int32_t rejectedNumber() {
    return testing::chosenBackEnd() == testing::BackEnd::SqliteOdbc ? kCannotOpen : kCommandFailed;
  }

  std::string connectionString() const { return register_.dsn(); }
  // The same provider and driver, but no register: a missing file (which
  // neither the provider nor the driver, told NoCreat, makes), or a database
  // the server does not have.
  std::string unopenableConnectionString() const {
    const std::filesystem::path missing = register_.folder() / "missing.db";
    switch (testing::chosenBackEnd()) {
      case testing::BackEnd::SqliteOdbc:
        return testing::TempRegister::sqliteOdbcConnectionString(missing);
      case testing::BackEnd::Postgres: {
        std::string dsn = register_.dsn();
        const std::size_t database = dsn.find(";Database=") + 10;
        return dsn.replace(database, dsn.find(';', database) - database, "no_such_register");
      }
      case testing::BackEnd::Sqlite:
        break;
    }
    return "Provider=SQLite;Data Source=" + missing.string();
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

// The recording double behind the data methods' own tests.
struct RecordingBackEnd {
  static constexpr const char* kName = "Recording";
  static std::string source() { return testing::kRecordingSource; }
  // "Fail=1" fails at open with this number.
  static std::int32_t cannotOpenNumber() { return kCannotOpen; }
  // It cannot judge SQL: a rejection raises what expectFailure() scripts,
  // SQL Server's number for a statement it refuses.
  static std::int32_t rejectedNumber() { return kCommandFailed; }
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
        AutomationError(rejectedNumber(), "Incorrect syntax near 'x'.", source()));
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

// The register test program runs the real register; the unit tests the double.
#ifdef VARNOCK_REGISTER_TEST_PROGRAM
using BackEnds = ::testing::Types<RegisterBackEnd>;
#else
using BackEnds = ::testing::Types<RecordingBackEnd>;
#endif

// Names each typed case after its back end ("ProviderConformance/SQLite.").
struct BackEndNames {
  template <class BackEnd>
  static std::string GetName(int) {
    return BackEnd::kName;
  }
};

}  // namespace varnock::client::conformance
