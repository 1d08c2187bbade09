// SPDX-License-Identifier: MIT
// The OLE DB keys carried to ODBC connection strings: SQL Server's providers
// to a SQL Server driver of the installed ones, MSDASQL to the caller's own
// ODBC keys.
#include "client/odbc/odbc_login.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "client/connection_string.h"
#include "varnock/record.h"

namespace varnock::client::odbc {
namespace {

const std::vector<InstalledDriver> kFreeTdsOnly = {{"FreeTDS", "libtdsodbc.so"},
                                                   {"SQLite3", "libsqlite3odbc.so"}};
const std::vector<InstalledDriver> kWithMicrosoft18 = {
    {"FreeTDS", "libtdsodbc.so"},
    {"ODBC Driver 17 for SQL Server", "/opt/microsoft/msodbcsql17/lib64/libmsodbcsql-17.so"},
    {"ODBC Driver 18 for SQL Server", "/opt/microsoft/msodbcsql18/lib64/libmsodbcsql-18.so"}};

OdbcLogin sqlServer(const std::string& text,
                    const std::vector<InstalledDriver>& installed = kFreeTdsOnly,
                    const std::optional<std::string>& preferred = std::nullopt) {
  return sqlServerLogin(ConnectionString(text), installed, preferred);
}

std::string odbcText(const std::string& text) {
  return odbcLogin(ConnectionString(text)).connectionString;
}

TEST(SqlServerLogin, TheDefaultConnectionStringReachesTheLocalServerThroughFreeTds) {
  const OdbcLogin login = sqlServer(Record::defaultConnectionString());
  // Use Procedure for Prepare, Auto Translate and the bare "sa" mean nothing
  // to ODBC; the packet size is a FreeTDS key.
  EXPECT_EQ(login.connectionString,
            "Driver={FreeTDS};Server=localhost;Database=Tolvane_Register;Language=us_english;"
            "PacketSize=4096");
  EXPECT_EQ(login.loginTimeoutSeconds, 15u);
  EXPECT_EQ(login.packetSize, std::nullopt);
}

TEST(SqlServerLogin, MicrosoftsNewestDriverIsChosenAndTakesThePacketSizeAsAnAttribute) {
  const OdbcLogin login = sqlServer(Record::defaultConnectionString(), kWithMicrosoft18);
  EXPECT_EQ(login.connectionString,
            "Driver={ODBC Driver 18 for SQL Server};Server=localhost;Database=Tolvane_Register;"
            "Language=us_english");
  EXPECT_EQ(login.packetSize, 4096u);
  const std::vector<InstalledDriver> only17 = {kWithMicrosoft18[0], kWithMicrosoft18[1]};
  EXPECT_EQ(sqlServer("Provider=SQLOLEDB", only17).connectionString,
            "Driver={ODBC Driver 17 for SQL Server};Server=localhost");
  // Names are matched without regard to case, as odbcinst.ini reads them.
  EXPECT_EQ(sqlServer("Provider=SQLOLEDB", {{"odbc driver 17 for sql server", ""}})
                .connectionString.rfind("Driver={ODBC Driver 17 for SQL Server};", 0),
            0u);
}

TEST(SqlServerLogin, TheSettingNamesTheDriverWhetherOrNotItIsInstalled) {
  EXPECT_EQ(sqlServer("Data Source=db", kWithMicrosoft18, "FreeTDS").connectionString,
            "Driver={FreeTDS};Server=db");
  // A missing one is the driver manager's to report.
  EXPECT_EQ(sqlServer("Data Source=db", kFreeTdsOnly, "Nowhere").connectionString,
            "Driver={Nowhere};Server=db");
  // An empty setting is no setting.
  EXPECT_EQ(sqlServer("Data Source=db", kWithMicrosoft18, "").connectionString,
            "Driver={ODBC Driver 18 for SQL Server};Server=db");
  // FreeTDS under another name is known by its library and gets its keys.
  const OdbcLogin renamed =
      sqlServer("Data Source=db;Packet Size=8192", {{"TDS", "/usr/lib/libtdsodbc.so"}}, "TDS");
  EXPECT_EQ(renamed.connectionString, "Driver={TDS};Server=db;PacketSize=8192");
  // Nothing installed: FreeTDS is named, for the driver manager to say it is missing.
  EXPECT_EQ(sqlServer("Data Source=db", {}).connectionString, "Driver={FreeTDS};Server=db");
}

TEST(SqlServerLogin, ServersAreWrittenAsTheDriversReadThem) {
  EXPECT_EQ(serverFor("(local)"), "localhost");
  EXPECT_EQ(serverFor("(LOCAL)"), "localhost");
  EXPECT_EQ(serverFor("."), "localhost");
  EXPECT_EQ(serverFor(""), "localhost");
  EXPECT_EQ(serverFor(" db.example.com "), "db.example.com");
  EXPECT_EQ(serverFor(".\\SQLEXPRESS"), "localhost\\SQLEXPRESS");
  EXPECT_EQ(serverFor("(local),1500"), "localhost,1500");
  EXPECT_EQ(serverFor("(localdb)\\MSSQLLocalDB"), "localhost");
  EXPECT_EQ(serverFor("db.example.com,1433"), "db.example.com,1433");
  EXPECT_EQ(serverFor("db\\Sales"), "db\\Sales");
  EXPECT_EQ(serverFor("10.0.0.5\\Sales"), "10.0.0.5\\Sales");
  EXPECT_EQ(serverFor("tcp:db.example.com,1433"), "db.example.com,1433");
  EXPECT_EQ(serverFor("TCP:(local)"), "localhost");
  EXPECT_EQ(serverFor("np:db"), "db");
  // Server and its other names stand in for Data Source.
  EXPECT_EQ(sqlServer("Server=db,2000").connectionString, "Driver={FreeTDS};Server=db,2000");
  EXPECT_EQ(sqlServer("Network Address=db").connectionString, "Driver={FreeTDS};Server=db");
}

TEST(SqlServerLogin, LoginsAreUserAndPasswordOrTheTrustedLogin) {
  EXPECT_EQ(sqlServer("Data Source=db;User ID=ann;Password=se;cret").connectionString,
            "Driver={FreeTDS};Server=db;UID=ann;PWD=se");
  // Quoted values keep their separators, and reach the driver in braces.
  EXPECT_EQ(sqlServer("Data Source=db;User ID=ann;Password=\"se;c}ret\"").connectionString,
            "Driver={FreeTDS};Server=db;UID=ann;PWD={se;c}}ret}");
  EXPECT_EQ(sqlServer("Data Source=db;Password=\" padded \"").connectionString,
            "Driver={FreeTDS};Server=db;PWD={ padded }");
  for (const char* trusted :
       {"Integrated Security=SSPI", "Integrated Security=true", "Trusted_Connection=yes"}) {
    SCOPED_TRACE(trusted);
    EXPECT_EQ(
        sqlServer(std::string("Data Source=db;User ID=ann;Password=x;") + trusted).connectionString,
        "Driver={FreeTDS};Server=db;Trusted_Connection=Yes");
  }
  EXPECT_EQ(sqlServer("Data Source=db;Integrated Security=false;User ID=ann").connectionString,
            "Driver={FreeTDS};Server=db;UID=ann");
}

TEST(SqlServerLogin, TheTimeoutIsTheConnectTimeoutOrFifteenSeconds) {
  EXPECT_EQ(sqlServer("Data Source=db;Connect Timeout=3").loginTimeoutSeconds, 3u);
  EXPECT_EQ(sqlServer("Data Source=db;Connection Timeout=0").loginTimeoutSeconds, 0u);
  EXPECT_EQ(sqlServer("Data Source=db;Connect Timeout=soon").loginTimeoutSeconds, 15u);
  EXPECT_EQ(sqlServer("Data Source=db;Connect Timeout=-1").loginTimeoutSeconds, 15u);
  EXPECT_EQ(sqlServer("Data Source=db;Connect Timeout=3").connectionString,
            "Driver={FreeTDS};Server=db");
}

TEST(SqlServerLogin, KeysThatMeanNothingToOdbcAreIgnored) {
  EXPECT_EQ(sqlServer("Provider=SQLNCLI11;Data Source=db;Persist Security Info=False;"
                      "Use Procedure for Prepare=1;Auto Translate=True;Network Library=DBMSSOCN;"
                      "Whatever=1;   sa   ;;")
                .connectionString,
            "Driver={FreeTDS};Server=db");
  EXPECT_EQ(sqlServer("Data Source=db;Application Name=Tour;Workstation ID=ws1;Initial "
                      "Catalog=Reg;Initial Catalog=Tolvane_Register")
                .connectionString,
            "Driver={FreeTDS};Server=db;Database=Tolvane_Register;APP=Tour;WSID=ws1");
}

TEST(SqlServerLogin, EncryptionIsAskedInEachDriversWords) {
  EXPECT_EQ(sqlServer("Data Source=db;Use Encryption for Data=True").connectionString,
            "Driver={FreeTDS};Server=db;Encryption=require");
  EXPECT_EQ(sqlServer("Data Source=db;Use Encryption for Data=True;Trust Server Certificate=True",
                      kWithMicrosoft18)
                .connectionString,
            "Driver={ODBC Driver 18 for SQL Server};Server=db;Encrypt=yes;"
            "TrustServerCertificate=yes");
}

TEST(OdbcLogin, TheCallersOdbcKeysPassWithAdosNamesMapped) {
  EXPECT_EQ(odbcText("Provider=MSDASQL.1;Data Source=Register;User ID=ann;Password=x"),
            "DSN=Register;UID=ann;PWD=x");
  EXPECT_EQ(odbcText("Driver={SQLite3};Database=/srv/register.db;Timeout=5000"),
            "Driver={SQLite3};Database=/srv/register.db;Timeout=5000");
  EXPECT_EQ(odbcText("Driver=SQLite3;Database=\"/srv/a;b.db\""),
            "Driver=SQLite3;Database={/srv/a;b.db}");
  // The last of a key wins, in the place of the first.
  EXPECT_EQ(odbcText("DSN=a;UID=ann;Data Source=b;uid=bob"), "DSN=b;UID=bob");
  EXPECT_EQ(odbcText("Persist Security Info=False;DSN=a;Connect Timeout=4"), "DSN=a");
  EXPECT_EQ(odbcLogin(ConnectionString("DSN=a;Connect Timeout=4")).loginTimeoutSeconds, 4u);
  EXPECT_EQ(odbcLogin(ConnectionString("DSN=a")).loginTimeoutSeconds, 15u);
  // Extended Properties holds ODBC's own text, which goes as it is.
  EXPECT_EQ(odbcText("Provider=MSDASQL;Extended Properties=\"DSN=x;Database=y\";UID=ann"),
            "UID=ann;DSN=x;Database=y");
  // A path alone is no key: the driver manager is asked for no data source.
  EXPECT_EQ(odbcText("/srv/register.db"), "");
}

}  // namespace
}  // namespace varnock::client::odbc
