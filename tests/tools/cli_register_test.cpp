// The varnock tool against real register files: init, which register a call
// opens, and the reading methods over rows put in with the sqlite3 shell.
#include <gtest/gtest.h>

#include "tools/cli_fixture.h"

namespace varnock::testing {
namespace {

using Init = VarnockCli;

TEST_F(Init, CreatesTheFileAndPrintsItsConnectionString) {
  const ProgramRun run = varnock({"init", "new.db"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "Provider=SQLite;Data Source=new.db\n");
  EXPECT_TRUE(std::filesystem::is_regular_file(folder() / "new.db"));
  // The printed string opens what was made.
  const ProgramRun count = varnock({"call", "User", "CountEveryUser", "--dsn", "new.db"});
  EXPECT_EQ(count.status, 0) << count.err;
  EXPECT_EQ(count.out, "0\n");
}

TEST_F(Init, NeverOverwritesAnExistingFile) {
  { std::ofstream(folder() / "keep.db") << "not a register"; }
  const ProgramRun run = varnock({"init", "keep.db"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("keep.db"), std::string::npos) << run.err;
  EXPECT_EQ(readFile(folder() / "keep.db"), "not a register");
}

TEST_F(Init, RefusesASecondInitOfTheSameRegisterAndKeepsItsRows) {
  initRegister("twice.db");
  const ProgramRun again = varnock({"init", "twice.db"});
  EXPECT_EQ(again.status, 1);
  EXPECT_EQ(varnock({"call", "Country", "CountEveryCountry", "--dsn", "twice.db"}).out, "0\n");
}

TEST_F(Init, AFolderThatIsNotThereIsARaisedError) {
  const ProgramRun run = varnock({"init", "no/such/folder/register.db"});
  EXPECT_EQ(run.status, 3) << run.out << run.err;
  EXPECT_FALSE(std::filesystem::exists(folder() / "no"));
}

TEST_F(Init, TakesExactlyOnePath) {
  EXPECT_EQ(varnock({"init"}).status, 2);
  EXPECT_EQ(varnock({"init", "a.db", "b.db"}).status, 2);
  EXPECT_FALSE(std::filesystem::exists(folder() / "a.db"));
}

using ChoosingTheRegister = VarnockCli;

TEST_F(ChoosingTheRegister, DefaultsToRegisterDbInTheWorkingFolder) {
  EXPECT_EQ(varnock({"call", "User", "CountEveryUser"}).status, 3);  // not made yet
  initRegister("register.db");
  const ProgramRun run = varnock({"call", "User", "CountEveryUser"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(run.out, "0\n");
}

TEST_F(ChoosingTheRegister, VarnockDsnNamesAPathOrAConnectionString) {
  initRegister("elsewhere.db");
  EXPECT_EQ(varnock({"call", "User", "CountEveryUser"}, {{"VARNOCK_DSN", "elsewhere.db"}}).out,
            "0\n");
  EXPECT_EQ(varnock({"call", "User", "CountEveryUser"},
                    {{"VARNOCK_DSN", "Provider=SQLite;Data Source=elsewhere.db"}})
                .out,
            "0\n");
  // The option wins over the environment.
  EXPECT_EQ(varnock({"call", "User", "CountEveryUser", "--dsn", "elsewhere.db"},
                    {{"VARNOCK_DSN", "missing.db"}})
                .status,
            0);
}

TEST_F(ChoosingTheRegister, TheDsnPropertyShowsTheConnectionStringInUse) {
  EXPECT_EQ(varnock({"call", "User", "DSN", "--dsn", "a;b.db"}).out,
            "Provider=SQLite;Data Source=\"a;b.db\"\n");
  EXPECT_EQ(varnock({"call", "User", "DSN"}, {{"VARNOCK_DSN", "Provider=Other;X=1"}}).out,
            "Provider=Other;X=1\n");
}

TEST_F(ChoosingTheRegister, AMissingRegisterFileRaisesWithNumberDescriptionAndSource) {
  const ProgramRun run = varnock({"call", "User", "CountEveryUser", "--dsn", "missing.db"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  // "error 0x........ (decimal): description [source: ...]"
  EXPECT_NE(run.err.find("error 0x"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find(" ("), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("[source: "), std::string::npos) << run.err;

  const Json json = varnockJson({"call", "User", "CountEveryUser", "--dsn", "missing.db"}, 3);
  ASSERT_TRUE(json.has("error"));
  EXPECT_EQ(json["error"]["number"].kind, Json::Kind::Number);
  EXPECT_EQ(json["error"]["hex"].text.substr(0, 2), "0x");
  EXPECT_FALSE(json["error"]["description"].text.empty());
  EXPECT_FALSE(json["error"]["source"].text.empty());
}

// Three countries in a new register, put in with the sqlite3 shell.
class Countries : public VarnockCli {
 protected:
  void SetUp() override {
    VarnockCli::SetUp();
    const auto sqlite3 = findOnPath("sqlite3");
    if (!sqlite3) GTEST_SKIP() << "the sqlite3 shell is not installed";
    initRegister();
    const ProgramRun run = runProgram(
        *sqlite3,
        {"register.db", "INSERT INTO Country (Country) VALUES ('Norway'), ('Chile'), ('Japan');"},
        folder());
    ASSERT_EQ(run.status, 0) << run.err;
  }
  ProgramRun call(std::vector<std::string> arguments) const {
    arguments.insert(arguments.begin(), {"call", "Country"});
    return varnock(arguments);
  }
};

TEST_F(Countries, CountEveryCountsThemWithAndWithoutACondition) {
  EXPECT_EQ(call({"CountEveryCountry"}).out, "3\n");
  EXPECT_EQ(call({"CountEveryCountry", "Country <> 'Chile'"}).out, "2\n");
}

TEST_F(Countries, GetEveryListsATableWithAHeaderRowAndARowCount) {
  const ProgramRun run = call({"GetEveryCountry", "", "Country"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(linesOf(run.out),
            (std::vector<std::string>{"Country", "Chile", "Japan", "Norway", "(3 rows)"}));
  const ProgramRun none = call({"GetEveryCountry", "Country = 'Peru'"});
  EXPECT_EQ(none.status, 0);
  EXPECT_EQ(linesOf(none.out).back(), "(0 rows)");
}

TEST_F(Countries, GetEveryInJsonIsAnArrayOfObjects) {
  const Json json = varnockJson({"call", "Country", "GetEveryCountry", "", "Country DESC"});
  const Json& rows = json["result"];
  ASSERT_EQ(rows.kind, Json::Kind::Array);
  ASSERT_EQ(rows.items.size(), 3u);
  EXPECT_EQ(rows.items[0]["Country"].text, "Norway");
  EXPECT_EQ(rows.items[2]["Country"].text, "Chile");
}

TEST_F(Countries, GetFirstLoadsTheObjectAndShowsItsColumns) {
  const ProgramRun run = call({"GetFirstCountry", "", "Country"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(linesOf(run.out), (std::vector<std::string>{"True", "Country  Chile"}));

  const Json json = varnockJson({"call", "Country", "GetFirstCountry", "", "Country"});
  EXPECT_TRUE(json["result"].boolean);
  EXPECT_EQ(json["object"]["Country"].text, "Chile");
  EXPECT_EQ(json["lastError"].text, "");
}

TEST_F(Countries, GetLastShowsTheOrderItRewroteAsAByReferenceArgument) {
  const ProgramRun run = call({"GetLastCountry", "", "Country"});
  EXPECT_EQ(run.status, 0) << run.err;
  const auto lines = linesOf(run.out);
  ASSERT_EQ(lines.size(), 3u) << run.out;
  EXPECT_EQ(lines[0], "True");
  EXPECT_EQ(lines[1], "Country  Norway");
  EXPECT_EQ(lines[2].substr(0, 18), "strOrderClause = \"");
  EXPECT_NE(lines[2].find("DESC"), std::string::npos) << lines[2];

  // Named, the argument comes back under its name too.
  const Json json = varnockJson({"call", "Country", "GetLastCountry", "STRORDERCLAUSE=Country"});
  EXPECT_EQ(json["object"]["Country"].text, "Norway");
  EXPECT_NE(json["byref"]["strOrderClause"].text.find("DESC"), std::string::npos);
}

TEST_F(Countries, UnchangedByReferenceArgumentsAreNotShown) {
  const Json json = varnockJson({"call", "Country", "GetFirstCountry", "Country <> ''", "Country"});
  EXPECT_TRUE(json["byref"].members.empty());
  // A number for a text argument comes back as its digits: the same value.
  const Json number = varnockJson({"call", "Country", "GetFirstCountry", "1", "Country"});
  EXPECT_EQ(number["object"]["Country"].text, "Chile");
  EXPECT_TRUE(number["byref"].members.empty());
}

TEST_F(Countries, GetNextSkipsOffsetRowsOfTheOrder) {
  const ProgramRun run = call({"GetNextCountry", "1", "strOrderClause=Country"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(linesOf(run.out), (std::vector<std::string>{"True", "Country  Japan"}));
  EXPECT_EQ(linesOf(call({"GetNextCountry", "2", "", "Country"}).out).back(), "Country  Norway");
  // Past the last row nothing loads: False is a reported failure.
  const ProgramRun past = call({"GetNextCountry", "3", "", "Country"});
  EXPECT_EQ(past.status, 1);
  EXPECT_EQ(linesOf(past.out).front(), "False");
  EXPECT_EQ(past.out.find("Country  "), std::string::npos) << past.out;
}

TEST_F(Countries, AGetThatFindsNothingReportsFailure) {
  const ProgramRun run = call({"GetCountry", "--set", "Country=Peru"});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(linesOf(run.out).front(), "False");
  const ProgramRun found = call({"GetCountry", "--set", "Country=Japan"});
  EXPECT_EQ(found.status, 0) << found.err;
}

TEST_F(Countries, FailedSqlIsTheLastErrorMessage) {
  const ProgramRun run = call({"GetFirstCountry", "NoSuchColumn = 1"});
  EXPECT_EQ(run.status, 1);
  const auto lines = linesOf(run.out);
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(lines.front(), "False");
  EXPECT_EQ(lines.back().substr(0, 12), "Last error: ") << run.out;

  const Json json = varnockJson({"call", "Country", "GetFirstCountry", "NoSuchColumn = 1"}, 1);
  EXPECT_FALSE(json["lastError"].text.empty());
  EXPECT_TRUE(json["object"].isNull());
}

TEST_F(Countries, TraceWritesTheStatementsSent) {
  const ProgramRun run = call({"CountEveryCountry", "--trace", "trace.jsonl"});
  EXPECT_EQ(run.status, 0) << run.err;
  const std::string trace = readFile(folder() / "trace.jsonl");
  EXPECT_NE(trace.find("Country"), std::string::npos) << trace;
  EXPECT_NE(trace.find("\"sql\""), std::string::npos) << trace;
}

// A zone with one address in its pool, for the methods that return objects.
class Zones : public VarnockCli {
 protected:
  void SetUp() override {
    VarnockCli::SetUp();
    const auto sqlite3 = findOnPath("sqlite3");
    if (!sqlite3) GTEST_SKIP() << "the sqlite3 shell is not installed";
    initRegister();
    const ProgramRun run = runProgram(*sqlite3,
                                      {"register.db",
                                       "INSERT INTO Zone (Zone, Test) VALUES ('Z1', 0);"
                                       "INSERT INTO ZonePool (Zone, Address) VALUES ('Z1', 5);"},
                                      folder());
    ASSERT_EQ(run.status, 0) << run.err;
  }
};

TEST_F(Zones, ARecordResultShowsItsColumns) {
  const ProgramRun run =
      varnock({"call", "ZonePool", "GetParentInZone", "--set", "Zone=Z1", "--set", "Address=5"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(linesOf(run.out), (std::vector<std::string>{"Zone  Z1", "Test  False"}));
  const Json json = varnockJson(
      {"call", "ZonePool", "GetParentInZone", "--set", "Zone=Z1", "--set", "Address=5"});
  EXPECT_EQ(json["result"]["Zone"].text, "Z1");
  EXPECT_EQ(json["result"]["Test"].kind, Json::Kind::Boolean);
  EXPECT_FALSE(json["result"]["Test"].boolean);
}

TEST_F(Zones, NoObjectToGiveBackIsNothing) {
  const ProgramRun run =
      varnock({"call", "ZonePool", "GetParentInZone", "--set", "Zone=Z9", "--set", "Address=5"});
  EXPECT_EQ(linesOf(run.out).front(), "Nothing") << run.out;
  const Json json =
      varnockJson({"call", "ZonePool", "GetParentInZone", "--set", "Zone=Z9", "--set", "Address=5"},
                  run.status);
  EXPECT_TRUE(json["result"].isNull());
}

TEST_F(Zones, ChildrenAreATableOfTheirColumns) {
  const ProgramRun run = varnock({"call", "Zone", "GetChildrenInZonePool", "--set", "Zone=Z1"});
  EXPECT_EQ(run.status, 0) << run.err;
  const auto lines = linesOf(run.out);
  ASSERT_EQ(lines.size(), 3u) << run.out;
  EXPECT_EQ(lines[0], "Zone  Address");
  EXPECT_EQ(lines[1], "Z1    5");
  EXPECT_EQ(lines[2], "(1 row)");
  const Json json = varnockJson({"call", "Zone", "GetChildrenInZonePool", "--set", "Zone=Z1"});
  ASSERT_EQ(json["result"].items.size(), 1u);
  EXPECT_EQ(json["result"].items[0]["Address"].number, 5.0);
}

}  // namespace
}  // namespace varnock::testing
