// SPDX-License-Identifier: MIT
// Peak memory for one large text value, end to end: written with Add<T> and
// read back with Get<T>. The figure is the peak of everything the process
// holds on the heap during the call (SQLite's blocks included), beyond what it
// held before, against one copy of the value held in the same run: the caller's
// own value is not counted, what Varnock and SQLite add to it is.
#include <benchmark/benchmark.h>

#include <string>

#include "support/bench_register.h"
#include "support/malloc_counter.h"
#include "support/ratio_reporter.h"
#include "varnock/varnock.h"

namespace {

namespace process = varnock::bench::process;
using varnock::bench::BenchRegister;

constexpr std::size_t kValueBytes = 100u << 20;

BenchRegister& theRegister() {
  static BenchRegister r("large-value");
  static const bool filled = [] {
    r.fill({"INSERT INTO [Country] VALUES ('Norway')"});
    return true;
  }();
  static_cast<void>(filled);
  return r;
}

std::string largeText(char fill) {
  return std::string(kValueBytes, fill);
}

// Runs `call` once per iteration and reports the heap it added at its peak.
template <class Prepare, class Call>
void measurePeak(benchmark::State& state, Prepare prepare, Call call) {
  double peak = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto subject = prepare();
    const std::size_t before = process::liveBytes();
    process::resetPeak();
    state.ResumeTiming();
    benchmark::DoNotOptimize(call(subject));
    state.PauseTiming();
    peak = static_cast<double>(process::peakLiveBytes() - before);
    state.ResumeTiming();
  }
  state.counters["peak_bytes"] = peak;
}

// The baseline: one copy of the value.
void BM_OneCopyOfTheValue(benchmark::State& state) {
  const std::string value = largeText('v');
  measurePeak(
      state, [&] { return 0; }, [&](int) { return std::string(value).size(); });
}

template <class Record>
void addRecord(benchmark::State& state, void (*fill)(Record&), bool (Record::*add)()) {
  measurePeak(
      state,
      [&] {
        auto record = std::make_shared<Record>();
        record->put_DSN(theRegister().dsn());
        fill(*record);
        return record;
      },
      [&](const std::shared_ptr<Record>& record) {
        const bool added = ((*record).*add)();
        if (!added) std::abort();
        theRegister().fill({"DELETE FROM [" + record->GetTableName() + "]"});
        return added;
      });
}

void fillUser(varnock::User& user) {
  user.put_Username("large");
  user.put_Lastname("Doe");
  user.put_Country("Norway");
  user.put_Password("secret");
  user.put_Email("large@example.org");
  user.put_Authorized(true);
  user.put_Bio(largeText('b'));
}

void fillGroup(varnock::GroupCode& group) {
  group.put_GroupCode("large");
  group.put_Group("Large");
  group.put_Comment(largeText('c'));
}

// A register table with date triggers (User) and one without (GroupCode).
void BM_AddUserWithALargeBio(benchmark::State& state) {
  addRecord<varnock::User>(state, fillUser, &varnock::User::AddUser);
}
void BM_AddGroupCodeWithALargeComment(benchmark::State& state) {
  addRecord<varnock::GroupCode>(state, fillGroup, &varnock::GroupCode::AddGroupCode);
}

void BM_GetUserWithALargeBio(benchmark::State& state) {
  varnock::User stored;
  stored.put_DSN(theRegister().dsn());
  fillUser(stored);
  if (!stored.AddUser()) std::abort();
  stored.put_Bio("");  // the writer's copy is not part of the reader's figure
  measurePeak(
      state,
      [] {
        auto reader = std::make_shared<varnock::User>();
        reader->put_DSN(theRegister().dsn());
        reader->put_Username("large");
        return reader;
      },
      [](const std::shared_ptr<varnock::User>& reader) {
        if (!reader->GetUser()) std::abort();
        return true;
      });
  theRegister().fill({"DELETE FROM [User]"});
}

BENCHMARK(BM_OneCopyOfTheValue)->Iterations(2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddUserWithALargeBio)->Iterations(2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_AddGroupCodeWithALargeComment)->Iterations(2)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_GetUserWithALargeBio)->Iterations(2)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  varnock::setEventLog("stderr");
  return varnock::bench::runComparisons(
      argc, argv, {},
      {{"BM_AddUserWithALargeBio/iterations:2", "BM_OneCopyOfTheValue/iterations:2", "peak_bytes",
        3.0, "a 100 MB text, written (date triggers on the table)"},
       {"BM_AddGroupCodeWithALargeComment/iterations:2", "BM_OneCopyOfTheValue/iterations:2",
        "peak_bytes", 3.0, "a 100 MB text, written"},
       {"BM_GetUserWithALargeBio/iterations:2", "BM_OneCopyOfTheValue/iterations:2", "peak_bytes",
        3.0, "a 100 MB text, read back"}});
}
