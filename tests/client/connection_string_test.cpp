// SPDX-License-Identifier: MIT
// Connection strings in the OLE DB form, as record objects carry them.
#include <gtest/gtest.h>

#include "client/connection_string.h"

namespace varnock::client {
namespace {

TEST(ConnectionString, ReadsTheDefaultConnectionStringOfARecord) {
  const ConnectionString cs(
      "Provider=SQLOLEDB.1;Initial Catalog=Tolvane_Register;Data Source=(local);Current "
      "Language=us_english;Use Procedure for Prepare=1;Auto Translate=True;Packet Size=4096;    "
      "sa            ");
  EXPECT_EQ(cs.get("Provider"), "SQLOLEDB.1");
  EXPECT_EQ(cs.get("Data Source"), "(local)");
  EXPECT_EQ(cs.get("Packet Size"), "4096");
  // The trailing segment holds no "=" and is no key at all.
  EXPECT_EQ(cs.pairs().size(), 7u);
  EXPECT_EQ(cs.pairs().back().first, "Packet Size");
  EXPECT_FALSE(cs.get("sa").has_value());
}

TEST(ConnectionString, ComparesKeysWithoutCaseAndLetsTheLastOneWin) {
  const ConnectionString cs("provider=SQLite; DATA SOURCE = first.db ;Data Source=second.db");
  EXPECT_EQ(cs.get("Provider"), "SQLite");
  EXPECT_EQ(cs.get("data source"), "second.db");
  EXPECT_FALSE(cs.get("Data").has_value());
  EXPECT_FALSE(cs.get("").has_value());
}

TEST(ConnectionString, TakesQuotedValuesWholeWithDoubledQuotes) {
  const ConnectionString cs(
      "Data Source=\"C:\\a;b \"\"c\"\".db\" ;Password='it''s; secret';Empty='';Open=\"no end");
  EXPECT_EQ(cs.get("Data Source"), "C:\\a;b \"c\".db");
  EXPECT_EQ(cs.get("Password"), "it's; secret");
  EXPECT_EQ(cs.get("Empty"), "");
  EXPECT_EQ(cs.get("Open"), "no end");
}

TEST(ConnectionString, KeepsBlanksInsideValuesAndTrimsThemAround) {
  const ConnectionString cs("  Initial Catalog =  Tolvane Register  ;;=orphan;Mode=");
  EXPECT_EQ(cs.get("Initial Catalog"), "Tolvane Register");
  EXPECT_EQ(cs.get("Mode"), "");
  EXPECT_EQ(cs.pairs().size(), 2u);
}

TEST(ConnectionString, WritesAnyValueSoThatItReadsBackTheSame) {
  for (const std::string value :
       {"plain.db", "", "tab\t", "\tlead", " both ", "a;b", "\"q\"", "'s'", "x\"", "=;='"}) {
    const std::string text = "Provider=SQLite;Data Source=" + ConnectionString::valueText(value);
    EXPECT_EQ(ConnectionString(text).get("Data Source"), value) << text;
  }
  EXPECT_EQ(ConnectionString::valueText("/srv/register.db"), "/srv/register.db");
}

TEST(ConnectionString, EmptyTextHasNoKeys) {
  EXPECT_TRUE(ConnectionString("").pairs().empty());
  EXPECT_TRUE(ConnectionString(" ; ;").pairs().empty());
}

}  // namespace
}  // namespace varnock::client
