// SPDX-License-Identifier: MIT
// A real register compares its texts without regard to case beyond ASCII,
// through the client and through the record classes: lookups, keys, order
// and LIKE; accents still count.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "client/client.h"
#include "support/captured_events.h"
#include "support/failure_of.h"
#include "support/temp_register.h"
#include "varnock/conversions.h"
#include "varnock/varnock.h"

namespace varnock::client {
namespace {

using Names = std::vector<std::string>;

class UnicodeText : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* name : {"Zürich", "öb", "ÖL", "Öz", "zebra", "Ærø", "Éire", "Eire"})
      run(std::string("INSERT INTO [Country] ([Country]) VALUES (N'") + name + "')");
  }
  std::unique_ptr<Recordset> run(const std::string& statement) {
    return connection_->execute(statement);
  }
  Names countries(const std::string& condition, const std::string& order = "Country") {
    Names names;
    for (auto rows = run("SELECT * FROM [Country] WHERE " + condition + " ORDER BY " + order);
         !rows->eof(); rows->moveNext())
      names.push_back(toText(rows->field("Country")));
    return names;
  }
  AutomationError refusal(const std::string& statement) {
    return testing::raisedBy([&] { run(statement); });
  }

  testing::TempRegister register_;
  std::unique_ptr<Connection> connection_ = open(register_.dsn());
};

TEST_F(UnicodeText, EqualityAndInFoldCaseBeyondAscii) {
  EXPECT_EQ(countries("Country = 'ZÜRICH'"), Names{"Zürich"});
  EXPECT_EQ(countries("Country IN ('zürich', 'ærø')"), (Names{"Zürich", "Ærø"}));
  EXPECT_EQ(countries("Country = 'öl'"), Names{"ÖL"});
  EXPECT_EQ(countries("Country NOT IN ('ZÜRICH', 'ÖB', 'öl', 'öZ', 'ZEBRA', 'ÆRØ', 'éire')"),
            Names{"Eire"});
  // Accents count, as under SQL Server's accent-sensitive default.
  EXPECT_EQ(countries("Country = 'zurich'"), Names{});
  EXPECT_EQ(countries("Country = 'ÉIRE'"), Names{"Éire"});
  EXPECT_EQ(countries("Country > 'ZEBRA' AND Country < 'ÖZ'"),
            (Names{"Zürich", "Ærø", "Éire", "öb", "ÖL"}));
}

TEST_F(UnicodeText, OrderIgnoresCase) {
  // By byte, or by NOCASE, the capital Ö (C3 96) would sort before every ö (C3 B6).
  EXPECT_EQ(countries("1 = 1"),
            (Names{"Eire", "zebra", "Zürich", "Ærø", "Éire", "öb", "ÖL", "Öz"}));
  EXPECT_EQ(countries("1 = 1", "Country DESC").front(), "Öz");
  auto bounds = run("SELECT min(Country) AS First, max(Country) AS Last FROM [Country]");
  EXPECT_EQ(bounds->field("First"), Variant("Eire"));
  EXPECT_EQ(bounds->field("Last"), Variant("Öz"));
  // A column without a key: DISTINCT and GROUP BY take either case as one.
  for (const char* user : {"jürgen", "JÜRGEN", "Jürgen", "jurgen"}) {
    run(std::string("INSERT INTO [ErrorLog] ([DateCreated], [UserId], [ErrorNumber], "
                    "[ErrorDescription]) VALUES ('2000-01-01', N'") +
        user + "', 1, 'x')");
  }
  EXPECT_EQ(run("SELECT Count(DISTINCT UserId) AS Users FROM [ErrorLog]")->field("Users"),
            Variant(std::int32_t{2}));
  EXPECT_EQ(run("SELECT Count(*) AS Entries FROM [ErrorLog] GROUP BY UserId ORDER BY 1 DESC")
                ->field("Entries"),
            Variant(std::int32_t{3}));
}

TEST_F(UnicodeText, AKeyInOtherLettersIsADuplicate) {
  EXPECT_EQ(refusal("INSERT INTO [Country] VALUES (N'ZÜRICH')").description(),
            "UNIQUE constraint failed: Country.Country");
  EXPECT_EQ(refusal("UPDATE [Country] SET Country = 'öz' WHERE Country = 'öb'").description(),
            "UNIQUE constraint failed: Country.Country");
  run("INSERT INTO [Country] VALUES ('Zurich')");  // another name: accents count
  // A child names its parent in any case.
  run("INSERT INTO [GroupCode] ([GroupCode], [Group]) VALUES ('ÜBER', 'Über')");
  run("INSERT INTO [User] ([UserName], [Lastname], [Country], [Password], [Email], "
      "[Authorized]) VALUES ('jürgen', 'Ö', 'Zürich', 'pw', 'j@x', 1)");
  run("INSERT INTO [GroupMember] ([GroupCode], [UserName]) VALUES ('über', 'JÜRGEN')");
  EXPECT_EQ(refusal("INSERT INTO [GroupMember] ([GroupCode], [UserName]) VALUES ('UBER', "
                    "'jürgen')")
                .description(),
            "FOREIGN KEY constraint failed");
}

TEST_F(UnicodeText, LikeFoldsCaseBeyondAscii) {
  EXPECT_EQ(countries("Country LIKE 'ZÜ%'"), Names{"Zürich"});
  EXPECT_EQ(countries("Country LIKE 'ö_'"), (Names{"öb", "ÖL", "Öz"}));
  EXPECT_EQ(countries("Country NOT LIKE '%Ö%' AND Country LIKE '%R%'"),
            (Names{"Eire", "zebra", "Zürich", "Ærø", "Éire"}));
  EXPECT_EQ(countries("Country LIKE 'é%'"), Names{"Éire"});
  run("INSERT INTO [Country] VALUES ('100% Ü')");
  EXPECT_EQ(countries("Country LIKE '%!%%' ESCAPE '!'"), Names{"100% Ü"});
  EXPECT_EQ(countries("Country LIKE '100%% ü' ESCAPE '%'"), Names{"100% Ü"});
  auto nulls = run("SELECT NULL LIKE 'a' AS A, 'a' LIKE NULL AS B, 'a' LIKE 'a' ESCAPE NULL AS C");
  EXPECT_TRUE(nulls->field("A").isNull());
  EXPECT_TRUE(nulls->field("B").isNull());
  EXPECT_TRUE(nulls->field("C").isNull());
}

TEST_F(UnicodeText, LikeKeepsSqlitesRefusals) {
  EXPECT_EQ(refusal("SELECT 'a' LIKE 'a' ESCAPE 'xy'").description(),
            "ESCAPE expression must be a single character");
  EXPECT_EQ(refusal("SELECT 'a' LIKE 'a' ESCAPE ''").description(),
            "ESCAPE expression must be a single character");
  EXPECT_EQ(refusal("SELECT 'a' LIKE '%' || zeroblob(60000)").description(),
            "LIKE or GLOB pattern too complex");
  // The pragma that would bring back SQLite's ASCII-only LIKE.
  EXPECT_EQ(refusal("PRAGMA case_sensitive_like = 1").description(), "not authorized");
  EXPECT_EQ(countries("Country LIKE 'zü%'"), Names{"Zürich"});
}

class UnicodeRecords : public UnicodeText {
 protected:
  testing::CapturedEvents events_;
};

TEST_F(UnicodeRecords, RecordClassesFindAndRefuseKeysInOtherLetters) {
  Country country;
  country.put_DSN(register_.dsn());
  country.put_Country("ZÜRICH");
  ASSERT_TRUE(country.GetCountry());
  EXPECT_EQ(country.get_Country(), Variant("Zürich"));
  country.put_Country("ÆRØ");
  EXPECT_FALSE(country.AddCountry());
  EXPECT_NE(country.GetLastErrorMessage().find("UNIQUE"), std::string::npos);
  EXPECT_EQ(events_.count(), 1u);
  EXPECT_EQ(country.CountEveryCountry("Country LIKE 'Ö%'"), 3);
  const auto every = country.GetEveryCountry("Country LIKE 'ö%'", "Country DESC");
  Names names;
  for (const Variant& item : *every)
    names.push_back(toText(std::dynamic_pointer_cast<Country>(item.asObject())->get_Country()));
  EXPECT_EQ(names, (Names{"Öz", "ÖL", "öb"}));
  country.put_Country("öZ");
  EXPECT_TRUE(country.DeleteCountry());
  EXPECT_EQ(country.CountEveryCountry("Country LIKE 'Ö%'"), 2);
}

}  // namespace
}  // namespace varnock::client
