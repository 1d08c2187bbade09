// SPDX-License-Identifier: MIT
// Column assignment and object creation, each beside a baseline measured in
// the same run: a plain copy of the same value, the C library's own parse of
// the same text, and a bare row of Variants with its own connection string.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <ctime>

#include "support/heap_counter.h"
#include "support/ratio_reporter.h"
#include "varnock/varnock.h"

namespace {

const varnock::Variant kText("Smith-Jones");
const varnock::Variant kNumberText("1,024");
const varnock::Variant kDateText("5/4/2000 1:45:00 PM");

void BM_StoreVariant(benchmark::State& state) {
  std::vector<varnock::Variant> row(17, varnock::Variant::null());
  for (auto _ : state) {
    row[3] = kText;
    benchmark::DoNotOptimize(row.data());
  }
}

void BM_AssignText(benchmark::State& state) {
  varnock::User user;
  for (auto _ : state) {
    user.put_Lastname(kText);
    benchmark::DoNotOptimize(&user);
  }
}

void BM_StrtodNumber(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(std::strtod("1024", nullptr));
  }
}

void BM_AssignNumberText(benchmark::State& state) {
  varnock::ZonePool pool;
  for (auto _ : state) {
    pool.put_Address(kNumberText);
    benchmark::DoNotOptimize(&pool);
  }
}

void BM_StrptimeDate(benchmark::State& state) {
  for (auto _ : state) {
    std::tm tm{};
    benchmark::DoNotOptimize(::strptime("5/4/2000 1:45:00 PM", "%m/%d/%Y %I:%M:%S %p", &tm));
    benchmark::DoNotOptimize(tm);
  }
}

void BM_AssignDateText(benchmark::State& state) {
  varnock::User user;
  for (auto _ : state) {
    user.put_DateCreated(kDateText);
    benchmark::DoNotOptimize(&user);
  }
}

struct BareRow {
  std::string dsn = varnock::Record::defaultConnectionString();
  std::string lastError;
  std::vector<varnock::Variant> values =
      std::vector<varnock::Variant>(17, varnock::Variant::null());
};

template <class T>
void heapPerObject(benchmark::State& state) {
  std::size_t bytes = 0;
  for (auto _ : state) {
    const std::size_t before = varnock::bench::allocatedBytes();
    auto object = std::make_shared<T>();
    bytes = varnock::bench::allocatedBytes() - before;
    benchmark::DoNotOptimize(object.get());
  }
  state.counters["heap_bytes"] = static_cast<double>(bytes);
}

void BM_NewBareRow(benchmark::State& state) {
  heapPerObject<BareRow>(state);
}
void BM_NewUser(benchmark::State& state) {
  heapPerObject<varnock::User>(state);
}

BENCHMARK(BM_StoreVariant);
BENCHMARK(BM_AssignText);
BENCHMARK(BM_StrtodNumber);
BENCHMARK(BM_AssignNumberText);
BENCHMARK(BM_StrptimeDate);
BENCHMARK(BM_AssignDateText);
BENCHMARK(BM_NewBareRow);
BENCHMARK(BM_NewUser);

}  // namespace

int main(int argc, char** argv) {
  return varnock::bench::runComparisons(
      argc, argv,
      {{"BM_AssignText", "BM_StoreVariant", 3.0, "text assignment", 50},
       {"BM_AssignNumberText", "BM_StrtodNumber", 2.0, "numeric test", 150},
       {"BM_AssignDateText", "BM_StrptimeDate", 2.0, "date test", 600},
       {"BM_NewUser", "BM_NewBareRow", 1.5, "object creation"}},
      {{"BM_NewUser", "BM_NewBareRow", "heap_bytes", 1.0, "bytes (under 1024; default DSN shared)",
        1024}});
}
