// SPDX-License-Identifier: MIT
// Copying one register into another: every row of every table arrives as it
// was, a target with rows is refused unless appending, and a failure names
// where it happened and leaves no half-written batch.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "client/client.h"
#include "support/failure_of.h"
#include "support/temp_register.h"
#include "varnock/conversions.h"
#include "varnock/register.h"

namespace varnock {
namespace {

using testing::TempRegister;

// Every row of a table as text, one line per row, sorted: two registers hold
// the same rows when these agree for every table.
std::vector<std::string> rowsOf(const std::string& dsn, const catalogue::Table& table) {
  auto connection = client::open(dsn);
  auto rows = connection->execute("SELECT * FROM [" + std::string(table.name) + "]");
  std::vector<std::string> lines;
  for (; !rows->eof(); rows->moveNext()) {
    std::string line;
    for (const catalogue::Column& c : table.columns) {
      const Variant v = rows->field(c.field);
      line += (v.isNull() ? std::string("<null>") : toText(v)) + "|";
    }
    lines.push_back(line);
  }
  std::sort(lines.begin(), lines.end());
  return lines;
}

void expectSameRows(const std::string& from, const std::string& to) {
  for (const catalogue::Table& table : catalogue::tables())
    EXPECT_EQ(rowsOf(from, table), rowsOf(to, table)) << table.name;
}

// A register with a row or more in every table, values of every kind.
void fill(const TempRegister& reg) {
  reg.run({
      "INSERT INTO [Country] VALUES ('Norway')",
      "INSERT INTO [Country] VALUES ('Côte d''Ivoire')",
      "INSERT INTO [State] VALUES ('Oslo')",
      "INSERT INTO [User] (UserName, Lastname, Country, Password, Email, Authorized, DateCreated,"
      " AuthorisationMessage) VALUES ('jdoe', 'O''Brien', 'Norway', 'pw', 'j@x', 1,"
      " '2000/5/4 01:45:00PM', 'line one\nline two')",
      "INSERT INTO [User] (UserName, Lastname, Country, Password, Email, Authorized)"
      " VALUES ('åsa', 'Ström', 'Côte d''Ivoire', 'pw', 'a@x', 0)",
      "INSERT INTO [GroupCode] VALUES ('admins', 'Administrators', NULL)",
      "INSERT INTO [GroupMember] VALUES ('admins', 'jdoe')",
      "INSERT INTO [Zone] VALUES ('north', 1)",
      "INSERT INTO [ZonePool] VALUES ('north', 7)",
      "INSERT INTO [ZoneAddress] VALUES ('north', 'åsa', -2147483648, '1/1/1900')",
      "INSERT INTO [Parm] VALUES ('Mail', 'Host', 'smtp', NULL, 1)",
      "INSERT INTO [LogFile] VALUES ('setup', '6/6/2079 11:59 PM', NULL, 'done')",
      "INSERT INTO [LogFile] VALUES ('setup', '6/6/2079 11:59 PM', NULL, 'done')",
      "INSERT INTO [ErrorLog] VALUES ('5/4/2000', 'jdoe', 13, 'Type mismatch', NULL)",
  });
}

TEST(CopyRegister, CopiesEveryRowOfEveryTableAsItWas) {
  TempRegister from, to;
  fill(from);
  std::vector<std::string> progressTables;
  std::int64_t lastTotal = -1;
  CopyOptions options;
  options.progress = [&](const CopyProgress& p) {
    progressTables.emplace_back(p.table);
    EXPECT_GE(p.totalCopied, lastTotal);  // never goes back
    lastTotal = p.totalCopied;
    EXPECT_EQ(p.totalRows, 14);
  };
  const std::vector<CopiedTable> copied = copyRegister(from.dsn(), to.dsn(), options);
  expectSameRows(from.dsn(), to.dsn());
  EXPECT_EQ(lastTotal, 14);
  // Parents before children, every table once, with its count.
  std::vector<std::string> order;
  std::int64_t total = 0;
  for (const CopiedTable& t : copied) {
    order.push_back(t.table);
    total += t.rows;
  }
  EXPECT_EQ(total, 14);
  EXPECT_EQ(order.size(), catalogue::tables().size());
  const auto at = [&](const char* name) { return std::find(order.begin(), order.end(), name); };
  EXPECT_LT(at("User"), at("GroupMember"));
  EXPECT_LT(at("Zone"), at("ZoneAddress"));
  EXPECT_LT(at("Country"), at("User"));
  EXPECT_EQ(copied[static_cast<std::size_t>(at("LogFile") - order.begin())].rows, 2);
  EXPECT_EQ(progressTables.size(), copied.size());
}

TEST(CopyRegister, RefusesATargetWithRowsBeforeWritingAnything) {
  TempRegister from, to;
  fill(from);
  to.run({"INSERT INTO [LogFile] VALUES ('other', '5/4/2000', NULL, 'kept')"});
  const AutomationError refused = testing::raisedBy([&] { copyRegister(from.dsn(), to.dsn()); });
  EXPECT_NE(refused.description().find("[LogFile] has 1"), std::string::npos)
      << refused.description();
  EXPECT_TRUE(rowsOf(to.dsn(), catalogue::table("Country")).empty());
  EXPECT_EQ(rowsOf(to.dsn(), catalogue::table("LogFile")).size(), 1u);
}

TEST(CopyRegister, AppendsAndAFailedRowNamesItsKeyAndLeavesNoHalfBatch) {
  TempRegister from, to;
  fill(from);
  to.run({"INSERT INTO [Country] VALUES ('Sweden')"});
  CopyOptions append;
  append.append = true;
  copyRegister(from.dsn(), to.dsn(), append);
  EXPECT_EQ(rowsOf(to.dsn(), catalogue::table("Country")).size(), 3u);
  EXPECT_EQ(rowsOf(to.dsn(), catalogue::table("LogFile")).size(), 2u);

  // Again: the countries are there already. The first duplicate stops the
  // copy, and the batch it was in is rolled back whole.
  TempRegister third;
  third.run({"INSERT INTO [Country] VALUES ('Côte d''Ivoire')"});
  const AutomationError duplicate =
      testing::raisedBy([&] { copyRegister(from.dsn(), third.dsn(), append); });
  EXPECT_NE(duplicate.description().find("Copying [Country] at the row Country = 'Côte d'Ivoire'"),
            std::string::npos)
      << duplicate.description();
  EXPECT_EQ(rowsOf(third.dsn(), catalogue::table("Country")).size(), 1u);
}

TEST(CopyRegister, AnUnopenableRegisterRaisesAndTheOtherIsUntouched) {
  TempRegister reg;
  fill(reg);
  const std::string missing = registerConnectionString((reg.folder() / "missing.db").string());
  EXPECT_EQ(testing::failureOf([&] { copyRegister(missing, reg.dsn()); }), client::kCannotOpen);
  TempRegister empty;
  EXPECT_EQ(testing::failureOf([&] { copyRegister(empty.dsn(), missing); }), client::kCannotOpen);
  EXPECT_FALSE(std::filesystem::exists(reg.folder() / "missing.db"));
}

}  // namespace
}  // namespace varnock
