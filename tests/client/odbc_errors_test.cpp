// SPDX-License-Identifier: MIT
// ODBC's diagnostics as AutomationError: the number ADO raises for each
// SQLSTATE, the driver's words, and the provider's name as source.
#include "client/odbc/odbc_errors.h"

#include <gtest/gtest.h>

#include "client/client.h"
#include "client/odbc/odbc_provider.h"
#include "support/failure_of.h"

namespace varnock::client::odbc {
namespace {

using testing::raisedBy;

TEST(OdbcErrors, TheNumberIsTheHresultAdoRaisesForTheSqlStateClass) {
  for (const char* opening : {"08001", "08S01", "28000", "IM002", "HYT00", "HY000", "01000", ""}) {
    EXPECT_EQ(numberFor(opening), kCannotOpen) << opening;
  }
  for (const char* refused : {"42000", "42S02", "42S22"}) {
    EXPECT_EQ(numberFor(refused), kCommandFailed) << refused;
  }
  EXPECT_EQ(numberFor("23000"), kIntegrityViolation);
  EXPECT_EQ(numberFor("23505"), kIntegrityViolation);
  EXPECT_EQ(numberFor("22001"), kDataOverflow);
  EXPECT_EQ(numberFor("22003"), kDataOverflow);
  EXPECT_EQ(numberFor("22007"), kCannotConvertValue);
  EXPECT_EQ(numberFor("22008"), kCannotConvertValue);
  EXPECT_EQ(numberFor("22018"), kCannotConvertValue);
  EXPECT_EQ(kIntegrityViolation, static_cast<std::int32_t>(0x80040E2Fu));
}

TEST(OdbcErrors, EveryRecordIsDescribedAndTheFirstGivesStateNumberAndNativeError) {
  const AutomationError e =
      errorFrom({{"42S02", 208, "[FreeTDS][SQL Server]Invalid object name 'Nowhere'."},
                 {"42000", 8180, "[FreeTDS][SQL Server]Statement(s) could not be prepared."},
                 {"42S02", 208, "[FreeTDS][SQL Server]Invalid object name 'Nowhere'."}},
                "Microsoft OLE DB Provider for SQL Server");
  EXPECT_EQ(e.number(), kCommandFailed);
  EXPECT_EQ(e.description(),
            "[FreeTDS][SQL Server]Invalid object name 'Nowhere'.\n"
            "[FreeTDS][SQL Server]Statement(s) could not be prepared.");
  EXPECT_EQ(e.source(), "Microsoft OLE DB Provider for SQL Server");
  EXPECT_EQ(e.sqlState(), "42S02");
  EXPECT_EQ(e.nativeError(), 208);
}

TEST(OdbcErrors, ADriverThatSaysNothingStillFailsWithADescription) {
  const AutomationError e = errorFrom({}, kOdbcSource);
  EXPECT_EQ(e.number(), kCannotOpen);
  EXPECT_FALSE(e.description().empty());
  EXPECT_EQ(e.sqlState(), "");
  EXPECT_EQ(e.nativeError(), 0);
}

TEST(OdbcErrors, APlainPathIsAskedOfTheDriverManagerAsADataSource) {
  // ADO's default provider is MSDASQL: a path is no connection string.
  const AutomationError e = raisedBy([] { open("/srv/register.db"); });
  EXPECT_EQ(e.number(), kCannotOpen);
  EXPECT_EQ(e.description(),
            "[unixODBC][Driver Manager]Data source name not found and no default driver "
            "specified");
  EXPECT_EQ(e.source(), kOdbcSource);
  EXPECT_EQ(e.sqlState(), "IM002");
  // As ADO's Data Source without a provider: the name of a DSN.
  EXPECT_EQ(raisedBy([] { open("Provider=MSDASQL.1;Data Source=NoSuchDsn"); }).sqlState(), "IM002");
}

TEST(OdbcErrors, TheSqlServerProvidersAreNamedAsAdoNamesThem) {
  EXPECT_EQ(sqlServerSource("SQLOLEDB.1"), "Microsoft OLE DB Provider for SQL Server");
  EXPECT_EQ(sqlServerSource("sqloledb"), "Microsoft OLE DB Provider for SQL Server");
  EXPECT_EQ(sqlServerSource("SQLNCLI"), "Microsoft SQL Native Client");
  EXPECT_EQ(sqlServerSource("SQLNCLI10.1"), "Microsoft SQL Server Native Client 10.0");
  EXPECT_EQ(sqlServerSource("SQLNCLI11"), "Microsoft SQL Server Native Client 11.0");
  EXPECT_EQ(sqlServerSource("MSOLEDBSQL"), "Microsoft OLE DB Driver for SQL Server");
  EXPECT_EQ(sqlServerSource("MSOLEDBSQL19"), "Microsoft OLE DB Driver 19 for SQL Server");
}

}  // namespace
}  // namespace varnock::client::odbc
