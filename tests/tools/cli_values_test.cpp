// SPDX-License-Identifier: MIT
// The varnock tool's value notation, argument passing, output forms and exit
// statuses, on objects that need no register.
#include <gtest/gtest.h>

#include <fstream>

#include "tools/cli_fixture.h"

namespace varnock::testing {
namespace {

class Values : public VarnockCli {
 protected:
  // Assigns VALUE to User.Firstname (a column that takes any value) and
  // reads it back.
  ProgramRun readBack(const std::string& value) const {
    return varnock({"call", "User", "Firstname", "--set", "Firstname=" + value});
  }
  // The same, with --json: the result's JSON text.
  std::string jsonResult(const std::string& value) const {
    const std::string out =
        varnockJson({"call", "User", "Firstname", "--set", "Firstname=" + value});
    const std::string head = "{\"result\": ";
    const std::string tail = R"(, "object": null, "byref": {}, "lastError": ""})"
                             "\n";
    if (!out.starts_with(head) || !out.ends_with(tail)) return "unexpected output: " + out;
    return out.substr(head.size(), out.size() - head.size() - tail.size());
  }
};

TEST_F(Values, KeywordsNumbersAndDatesAreThoseValues) {
  const std::pair<std::string, std::string> cases[] = {
      {"null", "null"},
      {"NULL", "null"},
      {"Empty", "{\"empty\": true}"},
      {"TRUE", "true"},
      {"false", "false"},
      {"42", "42"},
      {"+7", "7"},
      {"-.25", "-0.25"},
      {"6e3", "6000"},
      {"-2147483648", "-2147483648"},
      {"2147483648", "2147483648"},
      {"-99999999999", "-99999999999"},
      {"#5/4/2000 1:45 PM#", "\"2000-05-04T13:45:00\""},
      {"#2000-05-04#", "\"2000-05-04T00:00:00\""}};
  for (const auto& [notation, json] : cases)
    EXPECT_EQ(jsonResult(notation), json) << notation;
}

TEST_F(Values, OtherWordsAreTextAsWrittenAndStrKeepsTheRestAsText) {
  // Among them text that only looks numeric, and a single hash.
  for (const std::string text :
       {"1,234", "1.2.3", "12abc", "-", "1e", "#", "", " padded ", "a=b", "nulls"}) {
    EXPECT_EQ(jsonResult(text), "\"" + text + "\"");
  }
  for (const std::string text : {"null", "42", "", "str:x", "#1/1/2000#"})
    EXPECT_EQ(jsonResult("str:" + text), "\"" + text + "\"");
}

TEST_F(Values, JsonTextIsEscapedAndValidUtf8) {
  EXPECT_EQ(jsonResult("say \"hi\"\\ now\n\ttab\x01"), R"("say \"hi\"\\ now\n\ttab\u0001")");
  EXPECT_EQ(jsonResult("caf\xC3\xA9 \xE2\x82\xAC"), "\"caf\xC3\xA9 \xE2\x82\xAC\"");
  // Bytes that are not UTF-8 come out as U+FFFD, one for each.
  EXPECT_EQ(jsonResult("a\xFF\xC3z"), R"("a\ufffd\ufffdz")");
  EXPECT_EQ(jsonResult("\xED\xA0\x80"), R"("\ufffd\ufffd\ufffd")");
}

TEST_F(Values, TextOutputWritesEachValueInItsOwnForm) {
  const std::pair<std::string, std::string> cases[] = {
      {"null", "Null"},
      {"empty", "Empty"},
      {"True", "True"},
      {"false", "False"},
      {"str:null", "null"},
      {"1.5", "1.5"},
      {"4294967296", "4294967296"},
      {"#5/4/2000 1:45 PM#", "5/4/2000 1:45:00 PM"}};
  for (const auto& [notation, text] : cases)
    EXPECT_EQ(readBack(notation).out, text + "\n") << notation;
  // A date column takes a date as a date.
  EXPECT_TRUE(holds(
      varnockJson({"call", "User", "DateCreated", "--set", "DateCreated=#May 4, 2000 13:45#"}),
      R"("result": "2000-05-04T13:45:00")"));
  // Column lines keep each value on one line.
  const ProgramRun lines =
      varnock({"call", "Country", "GetDictionary", "--set", "Country=two\nlines"});
  EXPECT_EQ(lines.status, 0) << lines.err;
  EXPECT_EQ(lines.out, "Country  two\\nlines\n");
  // Values the notation cannot hold are usage errors (see the statuses below).
  EXPECT_EQ(readBack(std::string(400, '9')).status, 2);
  EXPECT_EQ(readBack("#not a date#").status, 2);
  EXPECT_TRUE(holds(readBack("#2/30/2000#").err, "2/30/2000"));
}

using Statuses = VarnockCli;

TEST_F(Statuses, EachCommandLineEndsWithItsStatus) {
  // 0: success, even of a property that reads False; 1: a reported failure;
  // 2: a usage error; 3: a raised error.
  const std::pair<const char*, int> cases[] = {
      {"call User Authorized --set Authorized=false", 0},
      {"call user GetTableName", 0},
      {"call User IsDataProperty blnCaseSensitive=false StrPropertyName=USERNAME", 0},
      {"call User IsDataProperty strpropertyname=USERNAME BLNCASESENSITIVE=true", 1},
      // A word whose name is no argument is one positional value: no column
      // is named "Firstname=x", nor "--json" after a double dash.
      {"call User GetDataProperty Firstname=x --set Firstname=y", 1},
      {"call User GetDataProperty -- --json", 1},
      {"call User SetDataProperty Firstname str:varPropertyValue=1", 0},
      {"", 2},
      {"frobnicate", 2},
      {"call", 2},
      {"call User", 2},
      {"call NoSuchClass DSN", 2},
      {"call Varnock.NoSuchClass DSN", 2},
      {"call User NoSuchMember", 2},
      {"call User DSN --no-such-option", 2},
      {"call User DSN --json=yes", 2},
      {"call User DSN --dsn", 2},
      {"call User DSN --trace", 2},
      {"call User DSN --set", 2},
      // Only properties can be set.
      {"call User DSN --set NoSuchColumn=1", 2},
      {"call User DSN --set GetDictionary=1", 2},
      {"call User DSN --set Firstname", 2},
      {"call User DSN --set =x", 2},
      // Values the notation cannot hold; nothing is called.
      {"call User Firstname --set Firstname=1e999", 2},
      {"call User Firstname --set Firstname=#2/30/2000#", 2},
      {"members User Zone", 2},
      {"members NoSuchClass", 2},
      {"idl extra", 2},
      // Arguments that do not bind.
      {"call User GetTableName extra", 3},
      {"call User GetDataProperty", 3},
      {"call User IsDataProperty a strPropertyName=b", 3},
  };
  for (const auto& [line, status] : cases) {
    const ProgramRun ran = run(line);
    EXPECT_EQ(ran.status, status) << line << ": " << ran.out << ran.err;
    if (status < 2) continue;
    EXPECT_EQ(ran.out, "") << line;
    EXPECT_TRUE(holds(ran.err, "varnock: ")) << line;
  }
}

TEST_F(Statuses, OutputOfResultsAndOfRaisedErrors) {
  EXPECT_EQ(run("call User IsDataProperty strpropertyname=USERNAME BLNCASESENSITIVE=true").out,
            "False\n");
  EXPECT_EQ(run("call varnock.groupmember GetTableName").out, "GroupMember\n");
  EXPECT_EQ(run("call User GetDataProperty strPropertyName=Firstname --set Firstname=y").out,
            "y\n");
  // A dispatch type mismatch, in hex and in decimal.
  EXPECT_EQ(run("call User GetNextUser abc").err,
            "varnock: error 0x80020005 (-2147352571): Type mismatch: argument lngOffset [source: "
            "Varnock]\n");
  EXPECT_EQ(
      varnockJson({"call", "User", "GetNextUser", "abc"}, 3),
      R"({"error": {"number": -2147352571, "hex": "0x80020005", "description": "Type mismatch: argument lngOffset", "source": "Varnock"}})"
      "\n");
  // Named values use the notation too.
  EXPECT_TRUE(holds(varnockJson({"call", "User", "SetDataProperty", "strPropertyName=Authorized",
                                 "varPropertyValue=TRUE"}),
                    R"({"result": true,)"));
}

TEST_F(Values, AtFileAndAtDashAreWholeTextsFromAFileOrStandardInput) {
  const std::string text = "line one\nline \"two\" \xC3\xBC\n";
  {
    std::ofstream file(folder() / "bio.txt", std::ios::binary);
    file << text;
  }
  EXPECT_EQ(jsonResult("@bio.txt"), "\"line one\\nline \\\"two\\\" \xC3\xBC\\n\"");
  EXPECT_EQ(varnock({"call", "User", "Firstname", "--set", "Firstname=@-"}, {}, "from\nstdin").out,
            "from\nstdin\n");
  EXPECT_EQ(jsonResult("str:@bio.txt"), R"("@bio.txt")");
  // Longer than one word of a command line may be.
  const std::string longText(300000, 'x');
  {
    std::ofstream file(folder() / "long.txt", std::ios::binary);
    file << longText;
  }
  EXPECT_EQ(readBack("@long.txt").out, longText + "\n");
  // Arguments take the notation too.
  EXPECT_EQ(varnock({"call", "User", "IsDataProperty", "@-"}, {}, "Firstname").out, "True\n");
  EXPECT_EQ(varnock({"call", "User", "IsDataProperty", "@-"}, {}, "Firstname\n").out, "False\n");

  const ProgramRun missing = readBack("@no-such-file");
  EXPECT_EQ(missing.status, 2);
  EXPECT_TRUE(holds(missing.err, "cannot read no-such-file")) << missing.err;
  const ProgramRun twice =
      varnock({"call", "User", "Firstname", "--set", "Firstname=@-", "--set", "Lastname=@-"}, {},
              "one value");
  EXPECT_EQ(twice.status, 2);
  EXPECT_TRUE(holds(twice.err, "@- may stand for one value only")) << twice.err;
}

using Assignments = VarnockCli;

TEST_F(Assignments, RefusedValuesAreReportedAndStopTheCall) {
  const ProgramRun ran = run(
      "call User GetDictionary --set Authorized=maybe --set Username=null --set Firstname=fine");
  EXPECT_EQ(ran.status, 1);
  const auto lines = linesOf(ran.out);
  ASSERT_EQ(lines.size(), 3u) << ran.out;
  EXPECT_EQ(lines[0].substr(0, 19), "Refused Authorized ");
  EXPECT_EQ(lines[1].substr(0, 17), "Refused Username ");
  EXPECT_EQ(lines[2].substr(0, 12), "Last error: ");

  // Each refusal is listed, even one that repeats the last message.
  const std::string refusal = R"(, "message": "Cannot convert this value to bit"})";
  EXPECT_EQ(
      varnockJson(
          {"call", "User", "GetDictionary", "--set", "Authorized=maybe", "--set", "Authorized=no!"},
          1),
      R"({"result": null, "object": null, "byref": {}, "lastError": "Cannot convert this value to bit", "refused": [{"column": "Authorized", "value": "maybe")" +
          refusal + R"(, {"column": "Authorized", "value": "no!")" + refusal + "]}\n");
}

TEST_F(Assignments, AcceptedValuesReachTheObjectInOrder) {
  const std::string out = varnockJson({"call", "user", "GETDICTIONARY", "--set", "username=first",
                                       "--set=Lastname=Doe", "--set", "Username=second"});
  EXPECT_TRUE(holds(
      out,
      R"({"result": {"UserName": "second", "SiteType": null, "Firstname": null, "Lastname": "Doe", )"));
  EXPECT_TRUE(holds(out, R"("lastError": ""})"));
  EXPECT_EQ(run("call User Firstname --set Firstname=x --set Firstname=null").out, "Null\n");
}

}  // namespace
}  // namespace varnock::testing
