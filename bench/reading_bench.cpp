// SPDX-License-Identifier: MIT
// The reading operations on a register of 10,000 users, each beside the raw
// SQLite C API running the same statement with the same open-execute-close
// pattern in the same run.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>

#include "support/bench_register.h"
#include "support/heap_counter.h"
#include "support/ratio_reporter.h"
#include "support/raw_sqlite.h"
#include "varnock/register.h"
#include "varnock/varnock.h"

namespace {

using varnock::bench::rawQuery;

constexpr int kUsers = 10000;

varnock::bench::BenchRegister& theRegister() {
  static varnock::bench::BenchRegister r("reading");
  static const bool filled = [] {
    std::vector<std::string> inserts{"INSERT INTO [Country] VALUES ('Norway')"};
    char name[32];
    for (int i = 0; i < kUsers; ++i) {
      std::snprintf(name, sizeof name, "user%05d", i);
      inserts.push_back(varnock::bench::userRow(name));
    }
    r.fill(inserts);
    return true;
  }();
  static_cast<void>(filled);
  return r;
}

void rawSingle(benchmark::State& state, const char* sql) {
  const std::string& path = theRegister().path();
  for (auto _ : state)
    benchmark::DoNotOptimize(rawQuery(path, sql, 1));
}

void BM_RawKeyLookup(benchmark::State& state) {
  rawSingle(state, "SELECT * FROM [User] WHERE UserName = 'user05000'");
}
void BM_GetUser(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  user.put_Username("user05000");
  for (auto _ : state)
    benchmark::DoNotOptimize(user.GetUser());
}

void BM_RawFirst(benchmark::State& state) {
  rawSingle(state, "SELECT * FROM [User] LIMIT 1");
}
void BM_GetFirstUser(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  for (auto _ : state)
    benchmark::DoNotOptimize(user.GetFirstUser());
}

void BM_RawNextAt100(benchmark::State& state) {
  rawSingle(state,
            "SELECT * FROM [User] WHERE UserName NOT IN (SELECT UserName FROM [User] LIMIT 100) "
            "LIMIT 1");
}
void BM_GetNextUserAt100(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  for (auto _ : state)
    benchmark::DoNotOptimize(user.GetNextUser(100));
}

void BM_RawCount(benchmark::State& state) {
  rawSingle(state, "SELECT Count(*) AS CountResultField FROM [User]");
}
void BM_CountEveryUser(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  for (auto _ : state)
    benchmark::DoNotOptimize(user.CountEveryUser());
}

void BM_RawEvery(benchmark::State& state) {
  varnock::bench::measurePeakHeap(state, [&] {
    auto rows = rawQuery(theRegister().path(), "SELECT * FROM [User]");
    benchmark::DoNotOptimize(rows.data());
  });
}
void BM_GetEveryUser(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  varnock::bench::measurePeakHeap(state, [&] {
    auto rows = user.GetEveryUser();
    if (rows->Count() != kUsers) state.SkipWithError("GetEveryUser did not read every row");
  });
}

BENCHMARK(BM_RawKeyLookup);
BENCHMARK(BM_GetUser);
BENCHMARK(BM_RawFirst);
BENCHMARK(BM_GetFirstUser);
BENCHMARK(BM_RawNextAt100);
BENCHMARK(BM_GetNextUserAt100);
BENCHMARK(BM_RawCount);
BENCHMARK(BM_CountEveryUser);
BENCHMARK(BM_RawEvery)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetEveryUser)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  return varnock::bench::runComparisons(
      argc, argv,
      {{"BM_GetUser", "BM_RawKeyLookup", 1.3, "key lookup"},
       {"BM_GetFirstUser", "BM_RawFirst", 1.3, "GetFirst<T>"},
       {"BM_GetNextUserAt100", "BM_RawNextAt100", 1.3, "GetNext<T> at offset 100"},
       {"BM_CountEveryUser", "BM_RawCount", 1.3, "CountEvery<T>"},
       {"BM_GetEveryUser", "BM_RawEvery", 1.5, "GetEvery<T> of 10,000 users"}},
      {{"BM_GetEveryUser", "BM_RawEvery", "peak_heap", 1.5, "bytes at the peak"}}, [] {
        theRegister();
        varnock::setEventLog("stderr");  // a failure shows at once
      });
}
