// SPDX-License-Identifier: MIT
// Sessions kept between calls, on every back end: a caller cannot tell a kept
// session from a new one, and the connection string's OLE DB Services value
// turns the keeping off as ADO's does.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "client/session_pool.h"
#include "support/temp_register.h"
#include "varnock/automation_error.h"
#include "varnock/varnock.h"

namespace varnock {
namespace {

using client::sessionPoolCounts;
using testing::TempRegister;

bool addCountry(const std::string& dsn, const std::string& name) {
  Country country;
  country.put_DSN(dsn);
  country.put_Country(name);
  return country.AddCountry();
}

bool hasCountry(const std::string& dsn, const std::string& name) {
  Country country;
  country.put_DSN(dsn);
  country.put_Country(name);
  return country.GetCountry();
}

std::int32_t countries(const std::string& dsn) {
  Country country;
  country.put_DSN(dsn);
  return country.CountEveryCountry();
}

// Runs `body` in a forked child and returns its exit status (0: it held).
template <class Body>
int inChild(Body body) {
  const pid_t child = ::fork();
  if (child == 0) ::_exit(body() ? 0 : 1);
  int status = 0;
  ::waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 100;
}

class SessionPool : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_TRUE(addCountry(register_.dsn(), "Norway")); }
  // Whether this run keeps sessions at all: the suite runs with it off too.
  static bool keeping() { return client::poolingProcessWide(); }

  TempRegister register_;
};

TEST_F(SessionPool, ACallServedByAKeptSessionSeesWhatANewSessionWould) {
  ASSERT_TRUE(hasCountry(register_.dsn(), "Norway"));
  const auto before = sessionPoolCounts();
  ASSERT_TRUE(addCountry(register_.dsn(), "Chile"));
  EXPECT_TRUE(hasCountry(register_.dsn(), "Chile"));
  EXPECT_FALSE(hasCountry(register_.dsn(), "Peru"));
  EXPECT_EQ(countries(register_.dsn()), 2);
  const auto after = sessionPoolCounts();
  if (keeping()) {
    EXPECT_EQ(after.opened, before.opened) << "every call after the first reuses its session";
    EXPECT_GE(after.reused, before.reused + 4);
  } else {
    EXPECT_EQ(after.opened, before.opened + 4);
    EXPECT_EQ(after.reused, before.reused);
  }
}

TEST_F(SessionPool, ServicesWithoutPoolingOpenANewSessionForEveryCall) {
  for (const char* services : {"-2", "-4", "0", " -2 "}) {
    const std::string dsn = register_.dsn() + ";OLE DB Services=" + services;
    const auto before = sessionPoolCounts();
    EXPECT_TRUE(hasCountry(dsn, "Norway"));
    EXPECT_TRUE(hasCountry(dsn, "Norway"));
    const auto after = sessionPoolCounts();
    EXPECT_EQ(after.opened, before.opened + 2) << services;
    EXPECT_EQ(after.reused, before.reused) << services;
  }
  // Every service, or every one but a client cursor, keeps pooling.
  for (const char* services : {"-1", "-5"}) {
    const std::string dsn = register_.dsn() + ";OLE DB Services=" + services;
    EXPECT_TRUE(hasCountry(dsn, "Norway"));
    const auto before = sessionPoolCounts();
    EXPECT_TRUE(hasCountry(dsn, "Norway"));
    EXPECT_EQ(sessionPoolCounts().reused, before.reused + (keeping() ? 1 : 0)) << services;
  }
}

TEST_F(SessionPool, ServicesThatAreNoNumberAreRefusedWithTheirValue) {
  Country country;
  country.put_DSN(register_.dsn() + ";OLE DB Services=all");
  country.put_Country("Norway");
  EXPECT_FALSE(country.GetCountry());
  EXPECT_NE(country.GetLastErrorMessage().find("OLE DB Services=all is not a whole number"),
            std::string::npos)
      << country.GetLastErrorMessage();
}

TEST_F(SessionPool, ARegisterDroppedAndMadeAgainBetweenTwoCallsIsSeenAfresh) {
  // Sent twice, so that a provider keeps the statements prepared.
  for (int i = 0; i < 2; ++i) {
    ASSERT_TRUE(hasCountry(register_.dsn(), "Norway"));
    ASSERT_EQ(countries(register_.dsn()), 1);
  }
  register_.recreate();
  // The same statements, on the new register, with the same answers.
  ASSERT_TRUE(addCountry(register_.dsn(), "Norway"));
  EXPECT_TRUE(hasCountry(register_.dsn(), "Norway"));
  EXPECT_EQ(countries(register_.dsn()), 1);
  EXPECT_FALSE(hasCountry(register_.dsn(), "Chile"));
}

TEST_F(SessionPool, AServerConnectionEndedWhileIdleIsReplaced) {
  ASSERT_TRUE(hasCountry(register_.dsn(), "Norway"));
  register_.dropServerConnections();
  // A session idle this long is asked whether its server still answers.
  std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  EXPECT_TRUE(hasCountry(register_.dsn(), "Norway"));
  EXPECT_TRUE(addCountry(register_.dsn(), "Chile"));
}

TEST_F(SessionPool, ATransactionLeftOpenIsNotHandedOn) {
  {
    auto connection = client::open(register_.dsn());
    connection->execute("BEGIN TRANSACTION");
    connection->execute("INSERT INTO [Country] VALUES ('Chile')");
    connection->close();
  }
  // The next caller neither sees the row nor meets a register locked by it.
  EXPECT_FALSE(hasCountry(register_.dsn(), "Chile"));
  EXPECT_TRUE(addCountry(register_.dsn(), "Peru"));
  EXPECT_EQ(countries(register_.dsn()), 2);
}

TEST_F(SessionPool, RowsStillBeingReadKeepTheirSessionFromOtherCallers) {
  ASSERT_TRUE(addCountry(register_.dsn(), "Chile"));
  auto connection = client::open(register_.dsn());
  auto rows = connection->execute("SELECT [Country] FROM [Country] ORDER BY [Country]");
  connection->close();
  // Another call meanwhile, on whatever session it gets.
  ASSERT_TRUE(addCountry(register_.dsn(), "Peru"));
  ASSERT_FALSE(rows->eof());
  EXPECT_EQ(rows->field("Country").asString(), "Chile");
  rows->moveNext();
  ASSERT_FALSE(rows->eof());
  EXPECT_EQ(rows->field("Country").asString(), "Norway");
  rows->moveNext();
  EXPECT_TRUE(rows->eof());
}

TEST_F(SessionPool, AForkedChildOpensSessionsOfItsOwnAndLeavesItsParentsAlone) {
  ASSERT_TRUE(hasCountry(register_.dsn(), "Norway"));  // the parent keeps a session
  const std::string dsn = register_.dsn();
  const bool keepsSessions = keeping();
  const int status = inChild([&] {
    const auto start = sessionPoolCounts();
    const bool sawParentsRow = hasCountry(dsn, "Norway");
    const bool wrote = addCountry(dsn, "Chile");
    const auto end = sessionPoolCounts();
    // Nothing of the parent's is counted or idle here; where sessions are
    // kept, one session of its own served both calls.
    return sawParentsRow && wrote && start.idle == 0 && start.opened == 0 &&
           end.opened == (keepsSessions ? 1u : 2u) && end.reused == (keepsSessions ? 1u : 0u);
  });
  EXPECT_EQ(status, 0);
  // The parent's kept session still works: the child neither used nor closed it.
  const auto before = sessionPoolCounts();
  EXPECT_TRUE(hasCountry(dsn, "Chile"));
  if (keeping()) {
    EXPECT_EQ(sessionPoolCounts().reused, before.reused + 1);
  }
}

TEST_F(SessionPool, TwoProcessesSeeEachOthersCommittedWritesAtOnce) {
  const std::string dsn = register_.dsn();
  ASSERT_TRUE(hasCountry(dsn, "Norway"));  // a session kept before the other writes
  int toChild[2];
  int toParent[2];
  ASSERT_EQ(::pipe(toChild), 0);
  ASSERT_EQ(::pipe(toParent), 0);
  const auto say = [](int fd) { return ::write(fd, "x", 1) == 1; };
  const auto await = [](int fd) {
    char c = 0;
    return ::read(fd, &c, 1) == 1;
  };
  const pid_t child = ::fork();
  if (child == 0) {
    // The child keeps a session too, then writes and answers what it reads.
    bool held = hasCountry(dsn, "Norway") && addCountry(dsn, "Chile") && say(toParent[1]);
    held = held && await(toChild[0]) && hasCountry(dsn, "Peru") && say(toParent[1]);
    ::_exit(held ? 0 : 1);
  }
  ASSERT_TRUE(await(toParent[0]));
  EXPECT_TRUE(hasCountry(dsn, "Chile"));
  ASSERT_TRUE(addCountry(dsn, "Peru"));
  ASSERT_TRUE(say(toChild[1]));
  EXPECT_TRUE(await(toParent[0]));
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
  for (int fd : {toChild[0], toChild[1], toParent[0], toParent[1]})
    ::close(fd);
}

TEST_F(SessionPool, IdleSessionsAreClosedWhenTheirTimeRunsOut) {
  if (!keeping()) GTEST_SKIP() << "sessions are not kept in this run";
  client::setSessionIdleTimeout(std::chrono::milliseconds(50));
  ASSERT_TRUE(hasCountry(register_.dsn(), "Norway"));
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
  while (sessionPoolCounts().idle > 0 && std::chrono::steady_clock::now() < deadline)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  client::setSessionIdleTimeout(std::chrono::minutes(1));
  EXPECT_EQ(sessionPoolCounts().idle, 0u);
  // And a call afterwards opens a new one.
  const auto before = sessionPoolCounts();
  EXPECT_TRUE(hasCountry(register_.dsn(), "Norway"));
  EXPECT_EQ(sessionPoolCounts().opened, before.opened + 1);
}

TEST_F(SessionPool, ManyThreadsShareThePoolWithoutLosingAWrite) {
  constexpr int kThreads = 6;
  constexpr int kEach = 15;
  std::vector<std::thread> threads;
  std::atomic<int> failures{0};
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      for (int i = 0; i < kEach; ++i) {
        const std::string name = "c" + std::to_string(t) + "-" + std::to_string(i);
        if (!addCountry(register_.dsn(), name) || !hasCountry(register_.dsn(), name)) ++failures;
      }
    });
  }
  for (std::thread& thread : threads)
    thread.join();
  EXPECT_EQ(failures.load(), 0);
  EXPECT_EQ(countries(register_.dsn()), 1 + kThreads * kEach);
}

}  // namespace
}  // namespace varnock
