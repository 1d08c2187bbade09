// SPDX-License-Identifier: MIT
// SQL Server's providers reach a SQL Server driver: no server here, so what
// is tested is that the open gets to the network as mapped, and fails
// cleanly and in time when nothing answers as a server would.
#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <optional>
#include <string>
#include <thread>

#include "client/client.h"
#include "client/odbc/odbc_login.h"
#include "support/failure_of.h"
#include "support/odbc_drivers.h"
#include "varnock/record.h"

namespace varnock::client::odbc {
namespace {

using testing::raisedBy;
using Clock = std::chrono::steady_clock;

// A listener on 127.0.0.1 that either reads each client's first packet and
// hangs up, or keeps each client waiting without a word. It never blocks
// longer than it is told: its thread gives up after `patience`.
class LocalListener {
 public:
  enum class Manner { ReadAndHangUp, KeepSilent };

  LocalListener(Manner manner, std::chrono::seconds patience) {
    socket_ = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    if (socket_ < 0 || ::bind(socket_, reinterpret_cast<sockaddr*>(&address), length) != 0 ||
        ::listen(socket_, 4) != 0 ||
        ::getsockname(socket_, reinterpret_cast<sockaddr*>(&address), &length) != 0) {
      ADD_FAILURE() << "no local socket";
      return;
    }
    port_ = ntohs(address.sin_port);
    thread_ = std::thread([this, manner, patience] { serve(manner, patience); });
  }
  ~LocalListener() {
    if (thread_.joinable()) thread_.join();
    if (socket_ >= 0) ::close(socket_);
  }

  int port() const { return port_; }
  // The first byte the first client sent, once the listener is done.
  std::optional<unsigned char> firstByte() {
    if (thread_.joinable()) thread_.join();
    return firstByte_;
  }

 private:
  static bool readable(int fd, std::chrono::milliseconds within) {
    pollfd waiting{fd, POLLIN, 0};
    return ::poll(&waiting, 1, static_cast<int>(within.count())) == 1;
  }

  void serve(Manner manner, std::chrono::seconds patience) {
    const auto deadline = Clock::now() + patience;
    // A driver may try again (FreeTDS with another protocol version), so
    // every client is served alike until none comes for a while.
    for (auto wait = std::chrono::milliseconds(patience);
         Clock::now() < deadline && readable(socket_, wait); wait = std::chrono::seconds(2)) {
      const int client = ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
      if (client < 0) return;
      if (manner == Manner::ReadAndHangUp && readable(client, std::chrono::seconds(5))) {
        unsigned char byte = 0;
        if (::recv(client, &byte, 1, 0) == 1 && !firstByte_) firstByte_ = byte;
      }
      // Silent: until the client gives up (its end closes) or patience runs out.
      while (manner == Manner::KeepSilent && Clock::now() < deadline) {
        char ignored[256];
        if (readable(client, std::chrono::milliseconds(100)) &&
            ::recv(client, ignored, sizeof ignored, 0) <= 0) {
          break;
        }
      }
      ::close(client);
    }
  }

  int socket_ = -1;
  int port_ = 0;
  std::thread thread_;
  std::optional<unsigned char> firstByte_;
};

// The SQL Server driver the provider will use must be there.
class SqlServerProviders : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!::varnock::testing::odbcDriverInstalled("ODBC Driver 18 for SQL Server") &&
        !::varnock::testing::odbcDriverInstalled("ODBC Driver 17 for SQL Server")) {
      VARNOCK_REQUIRE_ODBC_DRIVER(kFreeTdsDriver);
    }
    ::unsetenv(kSqlServerDriverVariable);
  }
};

TEST_F(SqlServerProviders, TheDefaultConnectionFailsThroughTheErrorPathWhereNoServerListens) {
  const auto started = Clock::now();
  const AutomationError e = raisedBy([] { open(Record::defaultConnectionString()); });
  // Fifteen seconds is the most it may wait; a refused connection is at once.
  EXPECT_LT(Clock::now() - started, std::chrono::seconds(20));
  EXPECT_EQ(e.number(), kCannotOpen);
  EXPECT_EQ(e.source(), "Microsoft OLE DB Provider for SQL Server");
  EXPECT_EQ(e.sqlState().substr(0, 2), "08") << e.sqlState() << ": " << e.description();
  EXPECT_FALSE(e.description().empty());
}

TEST_F(SqlServerProviders, TheMappedServerAndPortReceiveTheLoginsFirstPacket) {
  LocalListener listener(LocalListener::Manner::ReadAndHangUp, std::chrono::seconds(20));
  const std::string port = std::to_string(listener.port());
  const AutomationError e = raisedBy([&] {
    open("Provider=SQLOLEDB;Data Source=127.0.0.1," + port +
         ";Initial Catalog=Tolvane_Register;User ID=sa;Password=x;Connect Timeout=10");
  });
  EXPECT_EQ(e.number(), kCannotOpen);
  EXPECT_EQ(e.source(), "Microsoft OLE DB Provider for SQL Server");
  // TDS's pre-login message, the first thing a SQL Server driver sends.
  EXPECT_EQ(listener.firstByte(), std::optional<unsigned char>(0x12));
}

TEST_F(SqlServerProviders, AServerThatNeverAnswersIsGivenUpWithinTheConnectTimeout) {
  LocalListener listener(LocalListener::Manner::KeepSilent, std::chrono::seconds(30));
  const auto started = Clock::now();
  const AutomationError e = raisedBy([&] {
    open("Provider=SQLNCLI11;Data Source=127.0.0.1," + std::to_string(listener.port()) +
         ";Connect Timeout=2");
  });
  const auto waited = Clock::now() - started;
  // FreeTDS tries up to three protocol versions, each within the timeout.
  EXPECT_LT(waited, std::chrono::seconds(15));
  EXPECT_GE(waited, std::chrono::milliseconds(1500));
  EXPECT_EQ(e.number(), kCannotOpen);
  EXPECT_EQ(e.source(), "Microsoft SQL Server Native Client 11.0");
}

TEST_F(SqlServerProviders, TheSettingNamesTheDriverAndAMissingOneIsTheDriverManagersToReport) {
  ::setenv(kSqlServerDriverVariable, "No Such SQL Server Driver", 1);
  const AutomationError e = raisedBy([] { open("Provider=MSOLEDBSQL;Data Source=db"); });
  ::unsetenv(kSqlServerDriverVariable);
  EXPECT_EQ(e.number(), kCannotOpen);
  EXPECT_EQ(e.source(), "Microsoft OLE DB Driver for SQL Server");
  EXPECT_NE(e.description().find("[unixODBC][Driver Manager]"), std::string::npos)
      << e.description();
  EXPECT_NE(e.description().find("No Such SQL Server Driver"), std::string::npos)
      << e.description();
}

}  // namespace
}  // namespace varnock::client::odbc
