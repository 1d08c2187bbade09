// SPDX-License-Identifier: MIT
// Test hook: the database back end that the register tests run on, chosen
// by VARNOCK_TEST_BACK_END:
//   sqlite       the embedded provider on a register file (the default)
//   sqlite-odbc  the same kind of file through SQLite's ODBC driver
//   postgres     a register in the test program's own PostgreSQL server,
//                through PostgreSQL's ODBC driver
// The register test program runs once per back end; every other test uses
// the embedded register.
#pragma once

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

namespace varnock::testing {

enum class BackEnd { Sqlite, SqliteOdbc, Postgres };

inline std::string_view backEndName(BackEnd backEnd) {
  switch (backEnd) {
    case BackEnd::SqliteOdbc:
      return "sqlite-odbc";
    case BackEnd::Postgres:
      return "postgres";
    case BackEnd::Sqlite:
      break;
  }
  return "sqlite";
}

inline BackEnd chosenBackEnd() {
  const char* chosen = std::getenv("VARNOCK_TEST_BACK_END");
  const std::string_view name = chosen == nullptr ? "sqlite" : chosen;
  for (const BackEnd b : {BackEnd::Sqlite, BackEnd::SqliteOdbc, BackEnd::Postgres}) {
    if (backEndName(b) == name) return b;
  }
  // A misspelt back end must not quietly test another one.
  std::cerr << "VARNOCK_TEST_BACK_END=" << name << " names no back end\n";
  std::abort();
}

// Where a back end cannot do what SQL Server does, declared once here;
// tests of such a behaviour ask rather than assume.
enum class Difference {
  // Texts cannot hold NUL characters: PostgreSQL's text refuses them (the
  // dialect refuses the statement), SQLite's ODBC driver ends a text at one.
  TextCannotHoldNul,
};

inline bool backEndDiffers(Difference difference) {
  switch (difference) {
    case Difference::TextCannotHoldNul:
      return chosenBackEnd() != BackEnd::Sqlite;
  }
  return false;
}

// The source of the failures of the provider that serves the back end: the
// embedded one, or ODBC's as ADO names it.
inline std::string providerSource() {
  return chosenBackEnd() == BackEnd::Sqlite ? "Varnock.SQLite"
                                            : "Microsoft OLE DB Provider for ODBC Drivers";
}

// When set, a back end that cannot run here fails its tests instead of
// skipping them: CI installs every back end and must test them all.
inline bool everyBackEndRequired() {
  const char* required = std::getenv("VARNOCK_REQUIRE_ALL_BACK_ENDS");
  return required != nullptr && std::string_view(required) == "1";
}

}  // namespace varnock::testing
