// SPDX-License-Identifier: MIT
// What a data method costs once sessions are kept, on a register of 10,000
// users, beside the raw SQLite C API in the same run: running the same
// statement on a connection kept for the run (prepare, step, finalize), the
// floor of one statement prepared once (reset, bind, step), and the old way
// of opening the register for each call. Also two threads against one, and
// GetEveryUser of 100,000 users against a raw step loop building the same
// values.
#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "support/bench_register.h"
#include "support/heap_counter.h"
#include "support/ratio_reporter.h"
#include "support/raw_sqlite.h"
#include "varnock/varnock.h"

namespace {

using varnock::bench::BenchRegister;
using varnock::bench::KeptConnection;
using varnock::bench::ReusedStatement;

constexpr int kUsers = 10000;
constexpr int kManyUsers = 100000;
constexpr const char* kKey = "user05000";

std::string nameOf(int i) {
  char name[32];
  std::snprintf(name, sizeof name, "user%05d", i);
  return name;
}

const BenchRegister& registerOf(const char* label, int users) {
  auto* made = new BenchRegister(label);  // kept to the end of the program
  std::vector<std::string> inserts{"INSERT INTO [Country] VALUES ('Norway')"};
  for (int i = 0; i < users; ++i)
    inserts.push_back(varnock::bench::userRow(nameOf(i)));
  made->fill(inserts);
  return *made;
}

const BenchRegister& theRegister() {
  static const BenchRegister& r = registerOf("session", kUsers);
  return r;
}

const BenchRegister& largeRegister() {
  static const BenchRegister& r = registerOf("session-large", kManyUsers);
  return r;
}

const KeptConnection& kept() {
  static const KeptConnection connection(theRegister().path());
  return connection;
}

// ---- one row by key, the first row, the count ----

const std::string kByKey = std::string("SELECT * FROM [User] WHERE UserName = '") + kKey + "'";
const std::string kFirst = "SELECT * FROM [User] LIMIT 1";
const std::string kCount = "SELECT Count(*) AS CountResultField FROM [User]";

void BM_OpenPerCallGetUser(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(varnock::bench::rawQuery(theRegister().path(), kByKey.c_str(), 1));
}
void BM_KeptGetUser(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(kept().query(kByKey, 1));
}
void BM_ReusedGetUser(benchmark::State& state) {
  const ReusedStatement statement(kept(), "SELECT * FROM [User] WHERE UserName = ?");
  for (auto _ : state)
    benchmark::DoNotOptimize(statement.run(kKey, 1));
}

bool getUser(const std::string& dsn, const std::string& key) {
  varnock::User user;
  user.put_DSN(dsn);
  user.put_Username(key);
  return user.GetUser();
}

void BM_GetUser(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  user.put_Username(kKey);
  for (auto _ : state) {
    if (!user.GetUser()) state.SkipWithError("GetUser found no user");
  }
}
void BM_GetUserUnpooled(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn() + ";OLE DB Services=-2");
  user.put_Username(kKey);
  for (auto _ : state) {
    if (!user.GetUser()) state.SkipWithError("GetUser found no user");
  }
}

// A different key each call: statements that differ only in their literal.
void BM_KeptGetUserEachKey(benchmark::State& state) {
  int i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(
        kept().query("SELECT * FROM [User] WHERE UserName = '" + nameOf(i++ % kUsers) + "'", 1));
  }
}
void BM_GetUserEachKey(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  int i = 0;
  for (auto _ : state) {
    user.put_Username(nameOf(i++ % kUsers));
    if (!user.GetUser()) state.SkipWithError("GetUser found no user");
  }
}

void BM_KeptFirst(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(kept().query(kFirst, 1));
}
void BM_ReusedFirst(benchmark::State& state) {
  const ReusedStatement statement(kept(), kFirst.c_str());
  for (auto _ : state)
    benchmark::DoNotOptimize(statement.run({}, 1));
}
void BM_GetFirstUser(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  for (auto _ : state) {
    if (!user.GetFirstUser()) state.SkipWithError("GetFirstUser found no user");
  }
}

void BM_KeptCount(benchmark::State& state) {
  for (auto _ : state)
    benchmark::DoNotOptimize(kept().query(kCount));
}
void BM_ReusedCount(benchmark::State& state) {
  const ReusedStatement statement(kept(), kCount.c_str());
  for (auto _ : state)
    benchmark::DoNotOptimize(statement.run());
}
void BM_CountEveryUser(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  for (auto _ : state) {
    if (user.CountEveryUser() != kUsers) state.SkipWithError("CountEveryUser miscounted");
  }
}

// ---- threads: time per call with one thread calling, and with two ----

constexpr int kCallsPerThread = 2000;
// Rounds of the thread cases: fewer let one unlucky round swing the ratio.
constexpr int kThreadRounds = 25;

// A thread case's name as the benchmark library reports it.
std::string threadCase(const std::string& name) {
  return name + "/iterations:" + std::to_string(kThreadRounds) + "/manual_time";
}

void callsOnThreads(benchmark::State& state, int threads) {
  const std::string dsn = theRegister().dsn();
  for (auto _ : state) {
    const auto start = std::chrono::steady_clock::now();
    std::vector<std::thread> running;
    std::atomic<int> failures{0};
    for (int t = 0; t < threads; ++t) {
      running.emplace_back([&, t] {
        for (int i = 0; i < kCallsPerThread; ++i) {
          if (!getUser(dsn, nameOf((t * 997 + i) % kUsers))) ++failures;
        }
      });
    }
    for (std::thread& thread : running)
      thread.join();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    if (failures > 0) state.SkipWithError("GetUser found no user");
    // Wall time per call: calls made by all threads together.
    state.SetIterationTime(took.count() / (threads * kCallsPerThread));
  }
}
void BM_GetUserOneThread(benchmark::State& state) {
  callsOnThreads(state, 1);
}
void BM_GetUserTwoThreads(benchmark::State& state) {
  callsOnThreads(state, 2);
}

// ---- 100,000 users at once ----

void BM_RawEveryLarge(benchmark::State& state) {
  const KeptConnection connection(largeRegister().path());
  varnock::bench::measurePeakHeap(state, [&] {
    auto rows = connection.query("SELECT * FROM [User]");
    benchmark::DoNotOptimize(rows.data());
  });
}
void BM_GetEveryUserLarge(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(largeRegister().dsn());
  user.CountEveryUser();  // the session is open before the measured calls, as the baseline's
  varnock::bench::measurePeakHeap(state, [&] {
    auto rows = user.GetEveryUser();
    if (rows->Count() != kManyUsers) state.SkipWithError("GetEveryUser did not read every row");
  });
}

BENCHMARK(BM_OpenPerCallGetUser);
BENCHMARK(BM_KeptGetUser);
BENCHMARK(BM_ReusedGetUser);
BENCHMARK(BM_GetUser);
BENCHMARK(BM_GetUserUnpooled);
BENCHMARK(BM_KeptGetUserEachKey);
BENCHMARK(BM_GetUserEachKey);
BENCHMARK(BM_KeptFirst);
BENCHMARK(BM_ReusedFirst);
BENCHMARK(BM_GetFirstUser);
BENCHMARK(BM_KeptCount);
BENCHMARK(BM_ReusedCount);
BENCHMARK(BM_CountEveryUser);
BENCHMARK(BM_GetUserOneThread)->UseManualTime()->Iterations(kThreadRounds);
BENCHMARK(BM_GetUserTwoThreads)->UseManualTime()->Iterations(kThreadRounds);
BENCHMARK(BM_RawEveryLarge)->Unit(benchmark::kMillisecond)->Iterations(5);
BENCHMARK(BM_GetEveryUserLarge)->Unit(benchmark::kMillisecond)->Iterations(5);

}  // namespace

int main(int argc, char** argv) {
  return varnock::bench::runComparisons(
      argc, argv,
      {{"BM_GetUser", "BM_KeptGetUser", 1.3, "GetUser, against a kept connection"},
       {"BM_GetUser", "BM_ReusedGetUser", 2.5, "GetUser, against one reused statement"},
       {"BM_GetUserEachKey", "BM_KeptGetUserEachKey", 1.3,
        "GetUser, a new key each call, against a kept connection"},
       {"BM_GetFirstUser", "BM_KeptFirst", 1.3, "GetFirstUser, against a kept connection"},
       {"BM_GetFirstUser", "BM_ReusedFirst", 2.5, "GetFirstUser, against one reused statement"},
       {"BM_CountEveryUser", "BM_KeptCount", 1.3, "CountEveryUser, against a kept connection"},
       {"BM_CountEveryUser", "BM_ReusedCount", 2.5, "CountEveryUser, against one reused statement"},
       {"BM_GetUserUnpooled", "BM_OpenPerCallGetUser", 1.0,
        "GetUser, sessions not kept, against opening per call"},
       // 1.7 times the throughput is at most 1/1.7 of the time per call.
       {threadCase("BM_GetUserTwoThreads"), threadCase("BM_GetUserOneThread"), 1 / 1.7,
        "two threads: time per call against one thread (throughput at least 1.7x)"},
       {"BM_GetEveryUserLarge/iterations:5", "BM_RawEveryLarge/iterations:5", 1.2,
        "GetEveryUser of 100,000 users, against a raw step loop"}},
      {{"BM_GetEveryUserLarge/iterations:5", "BM_RawEveryLarge/iterations:5", "peak_heap", 1.2,
        "GetEveryUser of 100,000 users: bytes at the peak"}},
      [] {
        theRegister();
        varnock::setEventLog("stderr");  // a failure shows at once
      });
}
