// SPDX-License-Identifier: MIT
// Late-bound calls through Invoke beside the same early-bound C++ calls, in
// the same run. The caller holds the dispatch identifier, as a script host
// does after its first look-up, so no name is looked up per call.
#include <benchmark/benchmark.h>

#include "support/ratio_reporter.h"
#include "varnock/host.h"
#include "varnock/varnock.h"

namespace {

const varnock::Variant kLastname("Smith");

void BM_EarlyBoundPut(benchmark::State& state) {
  varnock::User user;
  for (auto _ : state) {
    user.put_Lastname(kLastname);
    benchmark::DoNotOptimize(&user);
  }
}

void BM_InvokePut(benchmark::State& state) {
  const auto user = varnock::CreateObject("Varnock.User");
  const std::int32_t id = varnock::GetIDsOfNames(*user, {"Lastname"})[0];
  varnock::DispatchArguments arguments{{kLastname}, {}};
  for (auto _ : state) {
    benchmark::DoNotOptimize(varnock::Invoke(*user, id, varnock::kDispatchPropertyPut, arguments));
  }
}

void BM_EarlyBoundGetTableName(benchmark::State& state) {
  varnock::User user;
  for (auto _ : state)
    benchmark::DoNotOptimize(user.GetTableName());
}

void BM_InvokeGetTableName(benchmark::State& state) {
  const auto user = varnock::CreateObject("Varnock.User");
  const std::int32_t id = varnock::GetIDsOfNames(*user, {"GetTableName"})[0];
  varnock::DispatchArguments none;
  for (auto _ : state) {
    benchmark::DoNotOptimize(varnock::Invoke(*user, id, varnock::kDispatchMethod, none));
  }
}

void BM_GetIDsOfNames(benchmark::State& state) {
  const auto user = varnock::CreateObject("Varnock.User");
  for (auto _ : state)
    benchmark::DoNotOptimize(varnock::GetIDsOfNames(*user, {"REMOTE_ADDR"}));
}

BENCHMARK(BM_EarlyBoundPut);
BENCHMARK(BM_InvokePut);
BENCHMARK(BM_EarlyBoundGetTableName);
BENCHMARK(BM_InvokeGetTableName);
BENCHMARK(BM_GetIDsOfNames);

}  // namespace

int main(int argc, char** argv) {
  return varnock::bench::runComparisons(
      argc, argv,
      {{"BM_InvokePut", "BM_EarlyBoundPut", 10.0, "late-bound property assignment", 0, 100},
       {"BM_InvokeGetTableName", "BM_EarlyBoundGetTableName", 10.0, "late-bound GetTableName", 0,
        100}});
}
