// The varnock tool's value notation, argument passing, output forms and exit
// statuses, on objects that need no register.
#include <gtest/gtest.h>

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
  Json readBackJson(const std::string& value) const {
    return varnockJson({"call", "User", "Firstname", "--set", "Firstname=" + value})["result"];
  }
};

TEST_F(Values, KeywordsAreNullEmptyAndBooleansInAnyCase) {
  EXPECT_EQ(readBack("null").out, "Null\n");
  EXPECT_EQ(readBack("NULL").out, "Null\n");
  EXPECT_EQ(readBack("empty").out, "Empty\n");
  EXPECT_EQ(readBack("True").out, "True\n");
  EXPECT_EQ(readBack("false").out, "False\n");

  EXPECT_TRUE(readBackJson("null").isNull());
  const Json empty = readBackJson("Empty");
  ASSERT_EQ(empty.kind, Json::Kind::Object);
  EXPECT_TRUE(empty["empty"].boolean);
  EXPECT_EQ(readBackJson("TRUE").kind, Json::Kind::Boolean);
  EXPECT_TRUE(readBackJson("TRUE").boolean);
  EXPECT_FALSE(readBackJson("false").boolean);
}

TEST_F(Values, StrPrefixKeepsTheRestAsText) {
  EXPECT_EQ(readBack("str:null").out, "null\n");
  const Json text = readBackJson("str:null");
  EXPECT_EQ(text.kind, Json::Kind::String);
  EXPECT_EQ(text.text, "null");
  EXPECT_EQ(readBackJson("str:42").kind, Json::Kind::String);
  EXPECT_EQ(readBackJson("str:").text, "");
  EXPECT_EQ(readBackJson("str:str:x").text, "str:x");
  EXPECT_EQ(readBackJson("str:#1/1/2000#").text, "#1/1/2000#");
}

TEST_F(Values, NumbersAreIntegersOrDoubles) {
  const Json integer = readBackJson("42");
  EXPECT_EQ(integer.kind, Json::Kind::Number);
  EXPECT_EQ(integer.number, 42.0);
  EXPECT_EQ(readBackJson("-2147483648").number, -2147483648.0);
  EXPECT_EQ(readBackJson("+7").number, 7.0);
  EXPECT_EQ(readBackJson("-.25").number, -0.25);
  EXPECT_EQ(readBackJson("6e3").number, 6000.0);
  EXPECT_EQ(readBack("1.5").out, "1.5\n");
  // Text that only looks numeric stays text.
  EXPECT_EQ(readBackJson("1,234").kind, Json::Kind::String);
  EXPECT_EQ(readBackJson("1.2.3").kind, Json::Kind::String);
  EXPECT_EQ(readBackJson("12abc").kind, Json::Kind::String);
  EXPECT_EQ(readBackJson("-").kind, Json::Kind::String);
  EXPECT_EQ(readBackJson("1e").kind, Json::Kind::String);
}

TEST_F(Values, IntegersBeyond32BitsKeepTheirValue) {
  EXPECT_EQ(readBackJson("2147483647").number, 2147483647.0);
  EXPECT_EQ(readBackJson("2147483648").number, 2147483648.0);
  EXPECT_EQ(readBackJson("-2147483649").number, -2147483649.0);
  EXPECT_EQ(readBackJson("-99999999999").number, -99999999999.0);
  EXPECT_EQ(readBack("4294967296").out, "4294967296\n");
}

TEST_F(Values, NumbersTooLargeForADoubleAreUsageErrors) {
  EXPECT_EQ(readBack("1e999").status, 2);
  EXPECT_EQ(readBack(std::string(400, '9')).status, 2);
}

TEST_F(Values, DatesAreWrittenBetweenHashes) {
  EXPECT_EQ(readBack("#5/4/2000 1:45 PM#").out, "5/4/2000 1:45:00 PM\n");
  EXPECT_EQ(readBackJson("#5/4/2000 1:45 PM#").text, "2000-05-04T13:45:00");
  EXPECT_EQ(readBackJson("#2000-05-04#").text, "2000-05-04T00:00:00");
  // A date column takes them as dates.
  const Json created = varnockJson(
      {"call", "User", "DateCreated", "--set", "DateCreated=#May 4, 2000 13:45#"})["result"];
  EXPECT_EQ(created.text, "2000-05-04T13:45:00");
}

TEST_F(Values, ABadDateIsAUsageErrorAndNothingIsCalled) {
  const ProgramRun run = readBack("#2/30/2000#");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "");
  EXPECT_NE(run.err.find("2/30/2000"), std::string::npos) << run.err;
  EXPECT_EQ(readBack("#not a date#").status, 2);
  EXPECT_EQ(readBackJson("#").text, "#");  // one hash is just text
}

TEST_F(Values, OtherWordsAreTextAsWritten) {
  EXPECT_EQ(readBackJson("").text, "");
  EXPECT_EQ(readBackJson(" padded ").text, " padded ");
  EXPECT_EQ(readBackJson("a=b").text, "a=b");
  EXPECT_EQ(readBackJson("nulls").text, "nulls");
}

TEST_F(Values, JsonTextIsEscapedAndValidUtf8) {
  EXPECT_EQ(readBackJson("say \"hi\"\\ now\n\ttab\x01").text, "say \"hi\"\\ now\n\ttab\x01");
  EXPECT_EQ(readBackJson("caf\xC3\xA9 \xE2\x82\xAC").text, "caf\xC3\xA9 \xE2\x82\xAC");
  // Bytes that are not UTF-8 come out as U+FFFD, one for each.
  EXPECT_EQ(readBackJson("a\xFF\xC3z").text, "a\xEF\xBF\xBD\xEF\xBF\xBDz");
  EXPECT_EQ(readBackJson("\xED\xA0\x80").text, "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST_F(Values, ColumnLinesKeepEachValueOnOneLine) {
  const ProgramRun run =
      varnock({"call", "Country", "GetDictionary", "--set", "Country=two\nlines"});
  EXPECT_EQ(run.status, 0) << run.err;
  EXPECT_EQ(linesOf(run.out), (std::vector<std::string>{"Country  two\\nlines"}));
}

using Arguments = VarnockCli;

TEST_F(Arguments, NamesMatchWithoutRegardToCaseInAnyOrder) {
  const ProgramRun caseSensitive = varnock(
      {"call", "User", "IsDataProperty", "strpropertyname=USERNAME", "BLNCASESENSITIVE=true"});
  EXPECT_EQ(caseSensitive.status, 1);  // a False result
  EXPECT_EQ(caseSensitive.out, "False\n");
  const ProgramRun anyCase = varnock(
      {"call", "User", "IsDataProperty", "blnCaseSensitive=false", "StrPropertyName=USERNAME"});
  EXPECT_EQ(anyCase.status, 0) << anyCase.err;
  EXPECT_EQ(anyCase.out, "True\n");
}

TEST_F(Arguments, AWordWhoseNameIsNoArgumentIsOnePositionalValue) {
  // "Firstname" is a column, not an argument of GetDataProperty.
  const ProgramRun positional =
      varnock({"call", "User", "GetDataProperty", "Firstname=x", "--set", "Firstname=y"});
  EXPECT_EQ(positional.status, 1);  // no column is named "Firstname=x"
  const ProgramRun named = varnock(
      {"call", "User", "GetDataProperty", "strPropertyName=Firstname", "--set", "Firstname=y"});
  EXPECT_EQ(named.status, 0) << named.err;
  EXPECT_EQ(named.out, "y\n");
  const ProgramRun quoted =
      varnock({"call", "User", "SetDataProperty", "Firstname", "str:varPropertyValue=1", "--json"});
  EXPECT_EQ(quoted.status, 0) << quoted.err;
}

TEST_F(Arguments, NamedValuesUseTheNotationToo) {
  const Json json = varnockJson(
      {"call", "User", "SetDataProperty", "strPropertyName=Authorized", "varPropertyValue=maybe"},
      1);
  EXPECT_FALSE(json["result"].boolean);
  EXPECT_NE(json["lastError"].text.find("bit"), std::string::npos) << json["lastError"].text;
  const Json accepted = varnockJson(
      {"call", "User", "SetDataProperty", "strPropertyName=Authorized", "varPropertyValue=TRUE"});
  EXPECT_TRUE(accepted["result"].boolean);
}

TEST_F(Arguments, ArgumentsThatDoNotBindAreRaisedErrors) {
  EXPECT_EQ(varnock({"call", "User", "GetTableName", "extra"}).status, 3);
  EXPECT_EQ(varnock({"call", "User", "GetDataProperty"}).status, 3);  // required
  EXPECT_EQ(varnock({"call", "User", "IsDataProperty", "a", "strPropertyName=b"}).status, 3);
}

TEST_F(Arguments, DoubleDashEndsTheOptions) {
  const ProgramRun run = varnock({"call", "User", "GetDataProperty", "--", "--json"});
  EXPECT_EQ(run.status, 1);  // looked up a column named "--json"
  EXPECT_EQ(run.out.find('{'), std::string::npos) << run.out;
}

using Assignments = VarnockCli;

TEST_F(Assignments, RefusedValuesAreReportedAndStopTheCall) {
  const ProgramRun run = varnock({"call", "User", "GetDictionary", "--set", "Authorized=maybe",
                                  "--set", "Username=null", "--set", "Firstname=fine"});
  EXPECT_EQ(run.status, 1);
  const auto lines = linesOf(run.out);
  ASSERT_EQ(lines.size(), 3u) << run.out;
  EXPECT_EQ(lines[0].substr(0, 19), "Refused Authorized ");
  EXPECT_EQ(lines[1].substr(0, 17), "Refused Username ");
  EXPECT_EQ(lines[2].substr(0, 12), "Last error: ");

  const Json json = varnockJson({"call", "User", "GetDictionary", "--set", "Authorized=maybe"}, 1);
  ASSERT_EQ(json["refused"].items.size(), 1u);
  EXPECT_EQ(json["refused"].items[0]["column"].text, "Authorized");
  EXPECT_EQ(json["refused"].items[0]["value"].text, "maybe");
  EXPECT_EQ(json["refused"].items[0]["message"].text, json["lastError"].text);
  EXPECT_TRUE(json["result"].isNull());
}

TEST_F(Assignments, ARefusalRepeatingTheLastMessageIsStillARefusal) {
  const Json json = varnockJson(
      {"call", "User", "GetDictionary", "--set", "Authorized=maybe", "--set", "Authorized=no!"}, 1);
  EXPECT_EQ(json["refused"].items.size(), 2u);
}

TEST_F(Assignments, AcceptedValuesReachTheObjectInOrder) {
  const Json json = varnockJson({"call", "user", "GETDICTIONARY", "--set", "username=first",
                                 "--set=Lastname=Doe", "--set", "Username=second"});
  EXPECT_EQ(json["result"]["UserName"].text, "second");
  EXPECT_EQ(json["result"]["Lastname"].text, "Doe");
  EXPECT_TRUE(json["result"]["Firstname"].isNull());
  EXPECT_EQ(json["lastError"].text, "");
}

TEST_F(Assignments, NullOnAColumnThatAllowsItIsAccepted) {
  const ProgramRun run =
      varnock({"call", "User", "Firstname", "--set", "Firstname=x", "--set", "Firstname=null"});
  EXPECT_EQ(run.status, 0) << run.out;
  EXPECT_EQ(run.out, "Null\n");
}

TEST_F(Assignments, OnlyPropertiesCanBeSet) {
  EXPECT_EQ(varnock({"call", "User", "DSN", "--set", "NoSuchColumn=1"}).status, 2);
  EXPECT_EQ(varnock({"call", "User", "DSN", "--set", "GetDictionary=1"}).status, 2);
  EXPECT_EQ(varnock({"call", "User", "DSN", "--set", "Firstname"}).status, 2);
  EXPECT_EQ(varnock({"call", "User", "DSN", "--set", "=x"}).status, 2);
  EXPECT_EQ(varnock({"call", "User", "DSN", "--set"}).status, 2);
}

using Statuses = VarnockCli;

TEST_F(Statuses, UsageErrorsAreTwoAndPrintNothingOnStandardOutput) {
  for (const std::vector<std::string>& line :
       std::vector<std::vector<std::string>>{{},
                                             {"frobnicate"},
                                             {"call"},
                                             {"call", "User"},
                                             {"call", "NoSuchClass", "DSN"},
                                             {"call", "Varnock.NoSuchClass", "DSN"},
                                             {"call", "User", "NoSuchMember"},
                                             {"call", "User", "DSN", "--no-such-option"},
                                             {"call", "User", "DSN", "--json=yes"},
                                             {"call", "User", "DSN", "--dsn"},
                                             {"call", "User", "DSN", "--trace"},
                                             {"members"},
                                             {"members", "NoSuchClass"},
                                             {"idl", "extra"}}) {
    const ProgramRun run = varnock(line);
    EXPECT_EQ(run.status, 2) << ::testing::PrintToString(line);
    EXPECT_EQ(run.out, "") << ::testing::PrintToString(line);
    EXPECT_NE(run.err.find("varnock: "), std::string::npos) << ::testing::PrintToString(line);
  }
}

TEST_F(Statuses, ClassesAreNamedByTableNameOrProgIdInAnyCase) {
  EXPECT_EQ(varnock({"call", "user", "GetTableName"}).out, "User\n");
  EXPECT_EQ(varnock({"call", "varnock.groupmember", "GetTableName"}).out, "GroupMember\n");
}

TEST_F(Statuses, RaisedErrorsAreThreeWithNumberDescriptionAndSource) {
  const ProgramRun run = varnock({"call", "User", "GetNextUser", "abc"});
  EXPECT_EQ(run.status, 3);
  EXPECT_EQ(run.out, "");
  // A dispatch type mismatch, in hex and in decimal.
  EXPECT_NE(run.err.find("0x80020005"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("(-2147352571)"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("lngOffset"), std::string::npos) << run.err;
  EXPECT_NE(run.err.find("[source: Varnock]"), std::string::npos) << run.err;

  const Json json = varnockJson({"call", "User", "GetNextUser", "abc"}, 3);
  EXPECT_EQ(json["error"]["number"].number, -2147352571.0);
  EXPECT_EQ(json["error"]["hex"].text, "0x80020005");
  EXPECT_EQ(json["error"]["source"].text, "Varnock");
}

TEST_F(Statuses, APropertyThatReadsFalseIsNoFailure) {
  const ProgramRun run = varnock({"call", "User", "Authorized", "--set", "Authorized=false"});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, "False\n");
}

}  // namespace
}  // namespace varnock::testing
