// SPDX-License-Identifier: MIT
// What every caller of the database client relies on, whichever provider
// serves it: opening, reading rows forwards, finding fields, Null, failures
// and closing. Every back end in back_ends.h runs every case; what is
// particular to one provider is tested beside it.
#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "client/back_ends.h"
#include "client/client.h"
#include "client/connection_string.h"
#include "client/provider.h"
#include "support/failure_of.h"
#include "support/odbc_drivers.h"
#include "varnock/automation_error.h"
#include "varnock/conversions.h"

namespace varnock::client::conformance {
namespace {

using Rows = std::vector<Row>;

using testing::raisedBy;

// The connection string with its Provider value replaced, or dropped for
// nullopt; the other keys stay as they were.
std::string withProvider(const std::string& connectionString,
                         const std::optional<std::string>& provider) {
  std::string text;
  if (provider) text = "Provider=" + ConnectionString::valueText(*provider);
  const ConnectionString parsed(connectionString);
  for (const auto& [key, value] : parsed.pairs()) {
    if (equalsIgnoringCase(key, "Provider")) continue;
    if (!text.empty()) text += ';';
    text += key + "=" + ConnectionString::valueText(value);
  }
  return text;
}

// One field of every row left, as the rows come.
std::vector<Variant> column(Recordset& rows, std::string_view field) {
  std::vector<Variant> values;
  for (; !rows.eof(); rows.moveNext())
    values.push_back(rows.field(field));
  return values;
}

// Rows at their end refuse to move on and to read `field`, one of theirs.
void expectNoCurrentRecord(Recordset& rows, std::string_view field) {
  EXPECT_TRUE(rows.eof());
  const AutomationError read = raisedBy([&] { rows.field(field); });
  EXPECT_EQ(read.number(), kNoCurrentRecord);
  EXPECT_EQ(read.description(), kNoCurrentRecordText);
  const AutomationError moved = raisedBy([&] { rows.moveNext(); });
  EXPECT_EQ(moved.number(), kNoCurrentRecord);
  EXPECT_EQ(moved.description(), kNoCurrentRecordText);
  EXPECT_TRUE(rows.eof());
}

template <class BackEnd>
class ProviderConformance : public ::testing::Test {
 protected:
  void SetUp() override {
    if constexpr (BackEnd::kOdbcDriver != nullptr)
      VARNOCK_REQUIRE_ODBC_DRIVER(BackEnd::kOdbcDriver);
    connection_ = connect();
  }
  void TearDown() override { backEnd_.verify(); }

  std::unique_ptr<Connection> connect() { return open(backEnd_.connectionString()); }

  // Runs a statement on a connection; `rows` are what it gives, which the
  // back end may be told.
  std::unique_ptr<Recordset> run(Connection& connection, std::string_view statement,
                                 Rows rows = {}) {
    backEnd_.expect(statement, std::move(rows));
    return connection.execute(statement);
  }
  std::unique_ptr<Recordset> run(std::string_view statement, Rows rows = {}) {
    return run(*connection_, statement, std::move(rows));
  }

  // The failure of a statement the database refuses.
  AutomationError rejection(std::string_view statement) {
    backEnd_.expectFailure(statement);
    return raisedBy([&] { connection_->execute(statement); });
  }

  void addCountries(std::initializer_list<const char*> names) {
    for (const char* name : names)
      run(std::string("INSERT INTO [Country] ([Country]) VALUES ('") + name + "')");
  }

  BackEnd backEnd_;
  std::unique_ptr<Connection> connection_;  // opened once the back end is there
};

TYPED_TEST_SUITE(ProviderConformance, BackEnds, BackEndNames);

// --- Opening

TYPED_TEST(ProviderConformance, OpensWhateverTheCaseOrVersionOfItsProviderName) {
  const std::string given = this->backEnd_.connectionString();
  const std::string name = ConnectionString(given).get("Provider").value_or(kDefaultProvider);
  std::string upper = name;
  std::string lower = name;
  for (std::size_t i = 0; i < name.size(); ++i) {
    upper[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[i])));
    lower[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(name[i])));
  }
  // "SQLOLEDB.1" names the provider SQLOLEDB in version 1.
  for (const std::string& connectionString :
       {given, withProvider(given, upper + ".1"), withProvider(given, lower + ".12")}) {
    SCOPED_TRACE(connectionString);
    auto connection = open(connectionString);
    ASSERT_NE(connection, nullptr);
    EXPECT_TRUE(this->run(*connection, "SELECT * FROM [Country]")->eof());
    connection->close();
  }
}

TYPED_TEST(ProviderConformance, AnUnknownProviderIsNotFound) {
  const std::string given = this->backEnd_.connectionString();
  const AutomationError unknown = raisedBy([&] { open(withProvider(given, "Nowhere")); });
  EXPECT_EQ(unknown.number(), kProviderNotFound);
  EXPECT_EQ(unknown.description(),
            "Provider cannot be found. It may not be properly installed. (Provider=Nowhere is not "
            "a provider of this build of Varnock)");
  EXPECT_FALSE(unknown.source().empty());
  // A name that only begins like a provider's is another name.
  const std::string name = ConnectionString(given).get("Provider").value_or(kDefaultProvider);
  EXPECT_EQ(raisedBy([&] { open(withProvider(given, name + "x")); }).number(), kProviderNotFound);
}

TYPED_TEST(ProviderConformance, AFailedOpenRaisesTheProvidersOwnFailure) {
  const AutomationError failed =
      raisedBy([&] { open(this->backEnd_.unopenableConnectionString()); });
  EXPECT_EQ(failed.number(), TypeParam::cannotOpenNumber());
  EXPECT_EQ(failed.source(), TypeParam::source());
  EXPECT_FALSE(failed.description().empty());
}

// --- Reading rows

TYPED_TEST(ProviderConformance, AStatementWithoutRowsIsAtItsEndAtOnce) {
  // A write's rows have no fields, so only moving on is asked of them.
  auto inserted = this->run("INSERT INTO [Country] ([Country]) VALUES ('Chad')");
  EXPECT_TRUE(inserted->eof());
  EXPECT_EQ(raisedBy([&] { inserted->moveNext(); }).number(), kNoCurrentRecord);
  EXPECT_TRUE(inserted->eof());
  EXPECT_TRUE(this->run("UPDATE [Country] SET Country = 'Peru' WHERE Country = 'Nowhere'")->eof());
  auto none = this->run("SELECT * FROM [Country] WHERE Country = 'Nowhere'");
  EXPECT_TRUE(none->eof());
  expectNoCurrentRecord(*none, "Country");
}

TYPED_TEST(ProviderConformance, RowsComeInTheirOrderAndAreReadForwards) {
  this->addCountries({"Denmark", "Brazil", "Norway", "Chile"});
  auto rows = this->run("SELECT * FROM [Country] ORDER BY Country DESC", {{{"Country", "Norway"}},
                                                                          {{"Country", "Denmark"}},
                                                                          {{"Country", "Chile"}},
                                                                          {{"Country", "Brazil"}}});
  // Asking whether rows are left does not move on.
  ASSERT_FALSE(rows->eof());
  ASSERT_FALSE(rows->eof());
  EXPECT_EQ(rows->field("Country"), Variant("Norway"));
  EXPECT_EQ(rows->field("Country"), Variant("Norway"));
  rows->moveNext();
  EXPECT_EQ(column(*rows, "Country"),
            (std::vector<Variant>{Variant("Denmark"), Variant("Chile"), Variant("Brazil")}));
  expectNoCurrentRecord(*rows, "Country");
}

TYPED_TEST(ProviderConformance, FieldsAreFoundByNameInAnyCaseAndAnyOrder) {
  this->run(
      "INSERT INTO [Parm] ([Section], [KeyName], [Value], [Locked]) VALUES ('Mail', 'Host', "
      "'smtp', 1)");
  auto rows = this->run("SELECT * FROM [Parm]", {{{"Section", "Mail"},
                                                  {"KeyName", "Host"},
                                                  {"Value", "smtp"},
                                                  {"Comment", Variant::null()},
                                                  {"Locked", true}}});
  ASSERT_FALSE(rows->eof());
  EXPECT_EQ(rows->field("LOCKED"), Variant(true));
  EXPECT_EQ(rows->field("keyname"), Variant("Host"));
  EXPECT_EQ(rows->field("sEcTiOn"), Variant("Mail"));
  EXPECT_EQ(rows->field("Value"), Variant("smtp"));
  EXPECT_EQ(rows->field("value"), Variant("smtp"));
  EXPECT_EQ(rows->field("Section"), Variant("Mail"));
  EXPECT_EQ(rows->field("KeyName"), Variant("Host"));
}

TYPED_TEST(ProviderConformance, TheFirstFieldOfADuplicatedNameWins) {
  this->addCountries({"Chad", "Peru"});
  auto rows = this->run(
      "SELECT * FROM [Country] AS Home, [Country] AS Away WHERE Home.Country = 'Peru' AND "
      "Away.Country = 'Chad'",
      {{{"Country", "Peru"}, {"Country", "Chad"}}});
  ASSERT_FALSE(rows->eof());
  EXPECT_EQ(rows->field("Country"), Variant("Peru"));
  EXPECT_EQ(rows->field("COUNTRY"), Variant("Peru"));
  EXPECT_EQ(rows->field("country"), Variant("Peru"));
  rows->moveNext();
  EXPECT_TRUE(rows->eof());
}

TYPED_TEST(ProviderConformance, AnUnknownFieldIsNotFoundAndTheRowStaysReadable) {
  this->addCountries({"Chad"});
  auto rows = this->run("SELECT * FROM [Country]", {{{"Country", "Chad"}}});
  ASSERT_FALSE(rows->eof());
  for (const char* name : {"Countries", "Countr", "", "Country ", "CountryCountry"}) {
    const AutomationError unknown = raisedBy([&] { rows->field(name); });
    EXPECT_EQ(unknown.number(), kItemNotFound) << '"' << name << '"';
    EXPECT_EQ(unknown.description(), kItemNotFoundText) << '"' << name << '"';
  }
  EXPECT_EQ(rows->field("Country"), Variant("Chad"));
  rows->moveNext();
  EXPECT_TRUE(rows->eof());
}

// --- Values

TYPED_TEST(ProviderConformance, NullComesBackAsNullAndAnEmptyTextAsText) {
  this->run(
      "INSERT INTO [Parm] ([Section], [KeyName], [Value], [Locked]) VALUES ('A', 'k', NULL, 0)");
  this->run(
      "INSERT INTO [Parm] ([Section], [KeyName], [Value], [Locked]) VALUES ('B', 'k', '', 0)");
  auto rows =
      this->run("SELECT Section, Value, Comment FROM [Parm] ORDER BY Section",
                {{{"Section", "A"}, {"Value", Variant::null()}, {"Comment", Variant::null()}},
                 {{"Section", "B"}, {"Value", ""}, {"Comment", Variant::null()}}});
  ASSERT_FALSE(rows->eof());
  EXPECT_EQ(rows->field("Value").type(), Variant::Type::Null);
  EXPECT_EQ(rows->field("Comment").type(), Variant::Type::Null);
  rows->moveNext();
  ASSERT_FALSE(rows->eof());
  EXPECT_EQ(rows->field("Value"), Variant(""));
  EXPECT_EQ(rows->field("Comment").type(), Variant::Type::Null);
}

TYPED_TEST(ProviderConformance, ColumnValuesComeBackAsTheirAutomationTypes) {
  this->run("INSERT INTO [Zone] ([Zone], [Test]) VALUES ('North', 1)");
  this->run("INSERT INTO [Zone] ([Zone], [Test]) VALUES ('South', 0)");
  this->run("INSERT INTO [ZonePool] ([Zone], [Address]) VALUES ('North', 42)");
  this->run(
      "INSERT INTO [Parm] ([Section], [KeyName], [Value], [Locked]) VALUES ('s', 'k', '0042', "
      "0)");
  this->run(
      "INSERT INTO [ErrorLog] ([DateCreated], [UserId], [ErrorNumber], [ErrorDescription]) "
      "VALUES ('5/4/2000 1:45:00 PM', 'ann', 5, 'failed')");
  EXPECT_EQ(column(*this->run(
                       "SELECT * FROM [Zone] ORDER BY Zone",
                       {{{"Zone", "North"}, {"Test", true}}, {{"Zone", "South"}, {"Test", false}}}),
                   "Test"),
            (std::vector<Variant>{Variant(true), Variant(false)}));
  EXPECT_EQ(this->run("SELECT * FROM [ZonePool]", {{{"Zone", "North"}, {"Address", 42}}})
                ->field("Address"),
            Variant(std::int32_t{42}));
  // A text of digits stays the text it is.
  auto parm = this->run("SELECT * FROM [Parm]", {{{"Section", "s"},
                                                  {"KeyName", "k"},
                                                  {"Value", "0042"},
                                                  {"Comment", Variant::null()},
                                                  {"Locked", false}}});
  EXPECT_EQ(parm->field("Value"), Variant("0042"));
  EXPECT_EQ(parm->field("Locked"), Variant(false));
  const Date created = Date::fromCivil({2000, 5, 4, 13, 45, 0});
  auto log = this->run("SELECT * FROM [ErrorLog]", {{{"DateCreated", created},
                                                     {"UserId", "ann"},
                                                     {"ErrorNumber", 5},
                                                     {"ErrorDescription", "failed"},
                                                     {"Message", Variant::null()}}});
  EXPECT_EQ(log->field("DateCreated"), Variant(created));
  EXPECT_EQ(log->field("ErrorNumber"), Variant(std::int32_t{5}));
  EXPECT_EQ(
      this->run("SELECT Count(*) AS CountResultField FROM [Zone]", {{{"CountResultField", 2}}})
          ->field("countresultfield"),
      Variant(std::int32_t{2}));
}

// --- Failures and closing

TYPED_TEST(ProviderConformance, ARejectedStatementRaisesAndTheConnectionGoesOn) {
  const AutomationError rejected = this->rejection("SELECT * FROM [Nowhere]");
  EXPECT_EQ(rejected.number(), TypeParam::rejectedNumber());
  EXPECT_EQ(rejected.source(), TypeParam::source());
  EXPECT_FALSE(rejected.description().empty());
  this->addCountries({"Chad"});
  EXPECT_EQ(column(*this->run("SELECT * FROM [Country]", {{{"Country", "Chad"}}}), "Country"),
            std::vector<Variant>{Variant("Chad")});
}

TYPED_TEST(ProviderConformance, RowsStayReadableAfterTheirConnectionCloses) {
  this->addCountries({"Chad", "Peru", "Mali"});
  auto rows = this->run("SELECT * FROM [Country] ORDER BY Country",
                        {{{"Country", "Chad"}}, {{"Country", "Mali"}}, {{"Country", "Peru"}}});
  ASSERT_FALSE(rows->eof());
  EXPECT_EQ(rows->field("Country"), Variant("Chad"));
  rows->moveNext();
  this->connection_->close();
  EXPECT_EQ(rows->field("Country"), Variant("Mali"));
  rows->moveNext();
  this->connection_.reset();
  EXPECT_EQ(column(*rows, "Country"), std::vector<Variant>{Variant("Peru")});
  expectNoCurrentRecord(*rows, "Country");
}

TYPED_TEST(ProviderConformance, ClosingTwiceIsHarmlessAndEndsExecution) {
  this->connection_->close();
  this->connection_->close();
  // Nothing reaches the database, so nothing is announced.
  const AutomationError closed =
      raisedBy([&] { this->connection_->execute("SELECT * FROM [Country]"); });
  EXPECT_EQ(closed.number(), kConnectionClosed);
  EXPECT_EQ(closed.description(), kConnectionClosedText);
  // Another connection to the same register is untouched.
  auto other = this->connect();
  EXPECT_TRUE(this->run(*other, "SELECT * FROM [Country]")->eof());
  other->close();
}

TYPED_TEST(ProviderConformance, AWriteIsSeenByALaterConnection) {
  this->addCountries({"Chad", "Peru"});
  this->connection_->close();
  {
    auto second = this->connect();
    this->run(*second, "UPDATE [Country] SET Country = 'Mali' WHERE Country = 'Peru'");
    this->run(*second, "DELETE FROM [Country] WHERE Country = 'Chad'");
    second->close();
  }
  auto third = this->connect();
  EXPECT_EQ(
      column(*this->run(*third, "SELECT * FROM [Country]", {{{"Country", "Mali"}}}), "Country"),
      std::vector<Variant>{Variant("Mali")});
  third->close();
}

}  // namespace
}  // namespace varnock::client::conformance
