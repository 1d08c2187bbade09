// SPDX-License-Identifier: MIT
// The varnock tool against real register files: init, which register a call
// opens, and how the reading methods' results are shown, over rows put in
// with the sqlite3 shell.
#include <gtest/gtest.h>

#include "support/sqlite_extension.h"
#include "tools/cli_fixture.h"

namespace varnock::testing {
namespace {

using Init = VarnockCli;

TEST_F(Init, CreatesTheFileAndPrintsItsConnectionString) {
  const ProgramRun made = run("init new.db");
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_EQ(made.out, "Provider=SQLite;Data Source=new.db\n");
  // The printed string opens what was made.
  const ProgramRun count =
      varnock({"call", "User", "CountEveryUser", "--dsn", made.out.substr(0, made.out.size() - 1)});
  EXPECT_EQ(count.status, 0) << count.err;
  EXPECT_EQ(count.out, "0\n");
}

TEST_F(Init, NeverOverwritesAFileAndTakesExactlyOnePathInAFolderThatIsThere) {
  { std::ofstream(folder() / "keep.db") << "not a register"; }
  initRegister("twice.db");
  for (const std::string name : {"keep.db", "twice.db"}) {
    const ProgramRun again = run("init " + name);
    EXPECT_EQ(again.status, 1);
    EXPECT_EQ(again.out, "");
    EXPECT_TRUE(holds(again.err, name));
  }
  EXPECT_EQ(readFile(folder() / "keep.db"), "not a register");
  EXPECT_EQ(run("call Country CountEveryCountry --dsn twice.db").out, "0\n");
  EXPECT_EQ(run("init").status, 2);
  EXPECT_EQ(run("init a.db b.db").status, 2);
  EXPECT_FALSE(std::filesystem::exists(folder() / "a.db"));
  EXPECT_EQ(run("init no/such/folder/register.db").status, 3);
  EXPECT_FALSE(std::filesystem::exists(folder() / "no"));
}

TEST_F(Init, APathThatAConnectionStringWouldChangeOpensWhatWasMade) {
  for (const std::string path : {"tab\t", " blank.db ", "semi;colon.db", "'quoted'.db"}) {
    SCOPED_TRACE(path);
    const ProgramRun made = varnock({"init", path});
    ASSERT_EQ(made.status, 0) << made.err;
    EXPECT_TRUE(std::filesystem::exists(folder() / path));
    const ProgramRun count = varnock({"call", "User", "CountEveryUser", "--dsn", path});
    EXPECT_EQ(count.status, 0) << count.err;
    EXPECT_EQ(count.out, "0\n");
  }
}

TEST_F(Init, AConnectionStringMakesTheRegisterWhereItPoints) {
  const ProgramRun made = varnock({"init", "Provider=SQLite;Data Source=viaString.db"});
  EXPECT_EQ(made.status, 0) << made.err;
  EXPECT_EQ(made.out, "Provider=SQLite;Data Source=viaString.db\n");
  EXPECT_EQ(run("call Zone CountEveryZone --dsn viaString.db").out, "0\n");
  // The same string again finds the register there and refuses.
  EXPECT_EQ(varnock({"init", "Provider=SQLite;Data Source=viaString.db"}).status, 3);
}

using Copy = VarnockCli;

TEST_F(Copy, CopiesEveryTableAndPrintsTheCounts) {
  initRegister("from.db");
  initRegister("to.db");
  for (const std::string country : {"Norway", "Sweden"}) {
    ASSERT_EQ(varnock({"call", "Country", "AddCountry", "--dsn", "from.db", "--set",
                       "Country=" + country})
                  .status,
              0);
  }
  const ProgramRun copied = run("copy from.db to.db");
  ASSERT_EQ(copied.status, 0) << copied.err;
  // Not a terminal: no progress bar, only the counts.
  EXPECT_EQ(copied.err, "");
  const std::vector<std::string> lines = linesOf(copied.out);
  ASSERT_EQ(lines.size(), 12u) << copied.out;
  EXPECT_EQ(lines[0], "Country      2");
  EXPECT_EQ(lines[11], "2 rows copied; every table's count checked");
  EXPECT_EQ(run("call Country CountEveryCountry --dsn to.db").out, "2\n");

  // Again: the target holds rows now, and only --append adds to it.
  const ProgramRun refused = run("copy from.db to.db");
  EXPECT_EQ(refused.status, 3);
  EXPECT_TRUE(holds(refused.err, "already holds rows"));
  const ProgramRun duplicate = run("copy from.db to.db --append");
  EXPECT_EQ(duplicate.status, 3);
  EXPECT_TRUE(holds(duplicate.err, "Copying [Country] at the row Country = 'Norway'"));
  EXPECT_EQ(run("call Country CountEveryCountry --dsn to.db").out, "2\n");
}

TEST_F(Copy, TakesExactlyTwoRegistersAndKnowsOneOption) {
  initRegister("from.db");
  EXPECT_EQ(run("copy from.db").status, 2);
  EXPECT_EQ(run("copy from.db a.db b.db").status, 2);
  EXPECT_EQ(run("copy from.db to.db --force").status, 2);
  EXPECT_EQ(run("copy from.db missing.db").status, 3);
  EXPECT_FALSE(std::filesystem::exists(folder() / "missing.db"));
}

using ChoosingTheRegister = VarnockCli;

TEST_F(ChoosingTheRegister, DefaultsToRegisterDbInTheWorkingFolder) {
  const ProgramRun missing = run("call User CountEveryUser");  // not made yet
  EXPECT_EQ(missing.status, 3);
  EXPECT_EQ(missing.out, "");
  EXPECT_TRUE(holds(json("call User CountEveryUser", 3),
                    R"({"error": {"number": -2147467259, "hex": "0x80004005", "description": ")"));
  initRegister("register.db");
  EXPECT_EQ(run("call User CountEveryUser").out, "0\n");
}

TEST_F(ChoosingTheRegister, VarnockDsnNamesAPathOrAConnectionStringAndTheOptionWins) {
  initRegister("elsewhere.db");
  for (const std::string dsn : {"elsewhere.db", "Provider=SQLite;Data Source=elsewhere.db"})
    EXPECT_EQ(varnock({"call", "User", "CountEveryUser"}, {{"VARNOCK_DSN", dsn}}).out, "0\n");
  EXPECT_EQ(varnock({"call", "User", "CountEveryUser", "--dsn", "elsewhere.db"},
                    {{"VARNOCK_DSN", "missing.db"}})
                .status,
            0);
  // The DSN property shows the connection string in use.
  EXPECT_EQ(run("call User DSN --dsn a;b.db").out, "Provider=SQLite;Data Source=\"a;b.db\"\n");
  EXPECT_EQ(varnock({"call", "User", "DSN"}, {{"VARNOCK_DSN", "Provider=Other;X=1"}}).out,
            "Provider=Other;X=1\n");
}

// Three countries, a zone and one address in its pool, put in with the
// sqlite3 shell.
class Rows : public VarnockCli {
 protected:
  void SetUp() override {
    VarnockCli::SetUp();
    const auto sqlite3 = findOnPath("sqlite3");
    if (!sqlite3) GTEST_SKIP() << "the sqlite3 shell is not installed";
    initRegister();
    const ProgramRun run =
        runProgram(*sqlite3,
                   {"-cmd", loadExtensionCommand(), "register.db",
                    "INSERT INTO Country (Country) VALUES ('Norway'), ('Chile'), ('Japan');"
                    "INSERT INTO Zone (Zone, Test) VALUES ('Z1', 0);"
                    "INSERT INTO ZonePool (Zone, Address) VALUES ('Z1', 5);"},
                   folder());
    ASSERT_EQ(run.status, 0) << run.err;
  }
  ProgramRun call(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"call", "Country"});
    return varnock(arguments);
  }
};

TEST_F(Rows, CountsAndListsAreATableWithAHeaderRowAndARowCount) {
  EXPECT_EQ(call({"CountEveryCountry"}).out, "3\n");
  EXPECT_EQ(call({"CountEveryCountry", "Country <> 'Chile'"}).out, "2\n");
  const ProgramRun ran = call({"GetEveryCountry", "", "Country"});
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(ran.out, "Country\nChile\nJapan\nNorway\n(3 rows)\n");
  EXPECT_EQ(call({"GetEveryCountry", "Country = 'Peru'"}).out, "(0 rows)\n");
  EXPECT_TRUE(holds(
      varnockJson({"call", "Country", "GetEveryCountry", "", "Country DESC"}),
      R"({"result": [{"Country": "Norway"}, {"Country": "Japan"}, {"Country": "Chile"}], "object": null,)"));
  EXPECT_EQ(run("call Zone GetChildrenInZonePool --set Zone=Z1").out,
            "Zone  Address\nZ1    5\n(1 row)\n");
  EXPECT_TRUE(holds(json("call Zone GetChildrenInZonePool --set Zone=Z1"),
                    R"({"result": [{"Zone": "Z1", "Address": 5}],)"));
}

TEST_F(Rows, ALoadedObjectShowsItsColumns) {
  const ProgramRun ran = call({"GetFirstCountry", "", "Country"});
  EXPECT_EQ(ran.status, 0) << ran.err;
  EXPECT_EQ(ran.out, "True\nCountry  Chile\n");
  EXPECT_EQ(json("call Country GetFirstCountry str: Country"),
            R"({"result": true, "object": {"Country": "Chile"}, "byref": {}, "lastError": ""})"
            "\n");
  // Offsets count rows of the order; past the last nothing loads, and False is a failure.
  EXPECT_EQ(call({"GetNextCountry", "1", "strOrderClause=Country"}).out, "True\nCountry  Japan\n");
  const ProgramRun past = call({"GetNextCountry", "3", "", "Country"});
  EXPECT_EQ(past.status, 1);
  EXPECT_EQ(past.out, "False\n");
  EXPECT_EQ(call({"GetCountry", "--set", "Country=Peru"}).status, 1);
  EXPECT_EQ(call({"GetCountry", "--set", "Country=Japan"}).status, 0);
}

TEST_F(Rows, ChangedByReferenceArgumentsAreShownUnderTheirNames) {
  EXPECT_EQ(call({"GetLastCountry", "", "Country"}).out,
            "True\nCountry  Norway\nstrOrderClause = \"Country DESC\"\n");
  EXPECT_TRUE(
      holds(json("call Country GetLastCountry STRORDERCLAUSE=Country"),
            R"("object": {"Country": "Norway"}, "byref": {"strOrderClause": "Country DESC"}, )"));
  // A number for a text argument comes back as its digits: the same value.
  EXPECT_TRUE(holds(json("call Country GetFirstCountry 1 Country"),
                    R"("object": {"Country": "Chile"}, "byref": {}, )"));
}

TEST_F(Rows, ARecordResultShowsItsColumnsAndNoneIsNothing) {
  const std::string parent = "call ZonePool GetParentInZone --set Address=5 --set Zone=";
  const ProgramRun found = run(parent + "Z1");
  EXPECT_EQ(found.status, 0) << found.err;
  EXPECT_EQ(found.out, "Zone  Z1\nTest  False\n");
  EXPECT_TRUE(holds(json(parent + "Z1"), R"({"result": {"Zone": "Z1", "Test": false}, )"));
  const ProgramRun none = run(parent + "Z9");
  EXPECT_EQ(none.status, 1);
  EXPECT_EQ(linesOf(none.out).front(), "Nothing");
  EXPECT_TRUE(holds(json(parent + "Z9", 1), R"({"result": null, )"));
}

TEST_F(Rows, FailedSqlIsTheLastErrorMessage) {
  const ProgramRun ran = call({"GetFirstCountry", "NoSuchColumn = 1"});
  EXPECT_EQ(ran.status, 1);
  EXPECT_EQ(ran.out, "False\nLast error: no such column: NoSuchColumn\n");
  EXPECT_EQ(
      varnockJson({"call", "Country", "GetFirstCountry", "NoSuchColumn = 1"}, 1),
      R"({"result": false, "object": null, "byref": {}, "lastError": "no such column: NoSuchColumn"})"
      "\n");
}

TEST_F(Rows, TraceWritesTheStatementsSent) {
  EXPECT_EQ(run("call Country CountEveryCountry --trace trace.jsonl").status, 0);
  EXPECT_TRUE(holds(readFile(folder() / "trace.jsonl"),
                    R"("sql":"SELECT Count(*) AS CountResultField FROM [Country]","ok":true)"));
}

}  // namespace
}  // namespace varnock::testing
