// SPDX-License-Identifier: MIT
// The register opened by programs other than Varnock: the sqlite3 shell and
// SQLite's ODBC driver. Without the register's collation they refuse what
// would write through its text indexes; with the extension loaded they read
// and write as Varnock does, and the register stays sound.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "client/client.h"
#include "support/run_program.h"
#include "support/sqlite_extension.h"
#include "support/temp_register.h"
#include "varnock/conversions.h"

namespace varnock::client {
namespace {

namespace fs = std::filesystem;
using testing::ProgramRun;

constexpr const char* kNoCollation = "no such collation sequence: VARNOCK_NOCASE";

class OtherPrograms : public ::testing::Test {
 protected:
  void SetUp() override {
    register_.run({"INSERT INTO [Country] VALUES (N'Zürich')",
                   "INSERT INTO [User] ([UserName], [Lastname], [Country], [Password], [Email], "
                   "[Authorized]) VALUES (N'jürgen', 'Ö', N'Zürich', 'pw', 'j@x', 1)"});
  }

  // The countries as Varnock reads them, in its order.
  std::vector<std::string> countries(const std::string& condition = "1 = 1") {
    auto connection = open(register_.dsn());
    std::vector<std::string> names;
    for (auto rows = connection->execute("SELECT * FROM [Country] WHERE " + condition +
                                         " ORDER BY Country");
         !rows->eof(); rows->moveNext())
      names.push_back(toText(rows->field("Country")));
    return names;
  }

  // The sqlite3 shell on the register, stopping at the first failure.
  ProgramRun shell(const std::string& sql, bool withExtension) {
    const auto program = testing::findOnPath("sqlite3");
    if (!program) return {};
    std::vector<std::string> arguments = {"-batch", "-bail"};
    if (withExtension) arguments.insert(arguments.end(), {"-cmd", testing::loadExtensionCommand()});
    arguments.insert(arguments.end(), {register_.path().string(), sql});
    return testing::runProgram(*program, arguments, register_.folder());
  }

  // Index and table agree, every index in the register's own order.
  void expectSound() {
    const ProgramRun check = shell("PRAGMA integrity_check;", true);
    EXPECT_EQ(check.out, "ok\n") << check.err;
  }

  testing::TempRegister register_;
};

TEST_F(OtherPrograms, TheShellWithoutTheExtensionRefusesWhatNeedsTheCollation) {
  if (!testing::findOnPath("sqlite3")) GTEST_SKIP() << "no sqlite3 shell on the search path";
  // Whole tables read.
  EXPECT_EQ(shell("SELECT Country FROM Country;", false).out, "Zürich\n");
  EXPECT_EQ(shell("SELECT UserName, Country FROM User;", false).out, "jürgen|Zürich\n");
  // A text column outside every key and index is written: no order is involved.
  EXPECT_EQ(shell("UPDATE User SET Lastname = 'Ü';", false).status, 0);
  // Every statement that compares or sorts text, or writes a text key or
  // index, is refused.
  for (const char* sql : {
           "INSERT INTO Country VALUES ('ZÜRICH');",
           "INSERT INTO Country VALUES ('Bern');",
           "UPDATE Country SET Country = 'Bern';",
           "DELETE FROM Country WHERE rowid = 1;",
           "UPDATE User SET UserName = 'JÜRGEN';",
           "SELECT count(*) FROM User;",
           "SELECT * FROM Country WHERE Country = 'ZÜRICH';",
           "SELECT * FROM Country ORDER BY Country;",
           "REINDEX;",
           "VACUUM;",
       }) {
    const ProgramRun run = shell(sql, false);
    EXPECT_EQ(run.status, 1) << sql;
    EXPECT_NE(run.err.find(kNoCollation), std::string::npos) << sql << ": " << run.err;
  }
  EXPECT_EQ(countries(), std::vector<std::string>{"Zürich"});
  EXPECT_EQ(shell("SELECT Lastname FROM User WHERE UserName = 'JÜRGEN';", true).out, "Ü\n");
  expectSound();
}

TEST_F(OtherPrograms, TheShellWithTheExtensionReadsAndWritesAsVarnockDoes) {
  if (!testing::findOnPath("sqlite3")) GTEST_SKIP() << "no sqlite3 shell on the search path";
  EXPECT_EQ(shell("SELECT Country FROM Country WHERE Country = 'ZÜRICH';", true).out, "Zürich\n");
  EXPECT_EQ(shell("SELECT Country FROM Country WHERE Country LIKE 'zü%';", true).out, "Zürich\n");
  const ProgramRun duplicate = shell("INSERT INTO Country VALUES ('ZÜRICH');", true);
  EXPECT_NE(duplicate.status, 0);
  EXPECT_NE(duplicate.err.find("UNIQUE constraint failed: Country.Country"), std::string::npos)
      << duplicate.err;
  const ProgramRun written = shell(
      "INSERT INTO Country VALUES ('Öz'), ('öb'), ('ÖL'), ('zebra'); "
      "UPDATE User SET Country = 'ÖZ' WHERE UserName = 'JÜRGEN'; "
      "SELECT group_concat(Country, ',') FROM (SELECT Country FROM Country ORDER BY Country);",
      true);
  ASSERT_EQ(written.status, 0) << written.err;
  EXPECT_EQ(written.out, "zebra,Zürich,öb,ÖL,Öz\n");
  // Varnock finds the shell's rows, in the same order, and writes beside them.
  EXPECT_EQ(countries("Country LIKE 'ö%'"), (std::vector<std::string>{"öb", "ÖL", "Öz"}));
  register_.run(
      {"INSERT INTO [Country] VALUES (N'Ärø')", "DELETE FROM [Country] WHERE Country = 'ÖB'"});
  EXPECT_EQ(shell("SELECT Country FROM User;", true).out, "ÖZ\n");
  EXPECT_EQ(countries(), (std::vector<std::string>{"zebra", "Zürich", "Ärø", "ÖL", "Öz"}));
  expectSound();
}

// isql from unixODBC, running `sql` (one statement a line) through SQLite's
// ODBC driver; it prints rows and errors on its output and exits 0 either way.
ProgramRun throughOdbc(const fs::path& isql, const fs::path& database, bool withExtension,
                       const std::string& sql) {
  std::string connection = "Driver=SQLite3;Database=" + database.string() + ";NoCreat=1";
  if (withExtension) connection += std::string(";LoadExt=") + testing::kSqliteExtensionPath;
  return testing::runProgram(isql, {"-k", connection, "-b", "-v", "-d|"}, database.parent_path(),
                             {}, sql);
}

TEST_F(OtherPrograms, TheOdbcDriverLoadsTheExtensionFromTheConnectionString) {
  const auto isql = testing::findOnPath("isql");
  if (!isql) GTEST_SKIP() << "no isql (unixODBC) on the search path";
  const ProgramRun loaded = throughOdbc(*isql, register_.path(), true,
                                        "SELECT Country FROM Country WHERE Country = 'ZÜRICH'\n"
                                        "INSERT INTO Country VALUES ('ZÜRICH')\n"
                                        "INSERT INTO Country VALUES ('Genf')\n"
                                        "SELECT Country FROM Country WHERE Country LIKE 'GE%'\n");
  ASSERT_EQ(loaded.status, 0) << loaded.err;
  EXPECT_EQ(loaded.out.find("[IM002]"), std::string::npos) << "the driver SQLite3 is not installed";
  EXPECT_NE(loaded.out.find("Zürich\n"), std::string::npos) << loaded.out;
  EXPECT_NE(loaded.out.find("UNIQUE constraint failed: Country.Country"), std::string::npos)
      << loaded.out;
  EXPECT_NE(loaded.out.find("Genf\n"), std::string::npos) << loaded.out;
  EXPECT_EQ(countries("Country = 'GENF'"), std::vector<std::string>{"Genf"});

  const ProgramRun bare = throughOdbc(*isql, register_.path(), false,
                                      "INSERT INTO Country VALUES ('Bern')\n"
                                      "SELECT Country FROM Country WHERE Country = 'GENF'\n");
  EXPECT_NE(bare.out.find(kNoCollation), std::string::npos) << bare.out;
  EXPECT_EQ(countries(), (std::vector<std::string>{"Genf", "Zürich"}));
  expectSound();
}

}  // namespace
}  // namespace varnock::client
