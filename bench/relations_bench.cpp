// SPDX-License-Identifier: MIT
// Derived children of a user in 50 groups and the children of a group of
// 1,000 members, each beside the raw SQLite C API running the same statement
// and building the same rows.
#include <benchmark/benchmark.h>

#include "support/bench_register.h"
#include "support/ratio_reporter.h"
#include "varnock/varnock.h"

namespace {

using varnock::bench::BenchRegister;

BenchRegister& theRegister() {
  static BenchRegister r("relations");
  static const bool filled = [] {
    std::vector<std::string> rows{"INSERT INTO [Country] VALUES ('Norway')",
                                  varnock::bench::userRow("member"),
                                  "INSERT INTO [GroupCode] VALUES ('BIG', 'Everyone', NULL)"};
    for (int g = 0; g < 50; ++g) {
      const std::string code = "G" + std::to_string(g);
      rows.push_back("INSERT INTO [GroupCode] VALUES ('" + code + "', 'Group " + code +
                     "', 'comment')");
      rows.push_back("INSERT INTO [GroupMember] VALUES ('" + code + "', 'member')");
    }
    for (int u = 0; u < 1000; ++u) {
      const std::string name = "u" + std::to_string(u);
      rows.push_back(varnock::bench::userRow(name));
      rows.push_back("INSERT INTO [GroupMember] VALUES ('BIG', '" + name + "')");
    }
    r.fill(rows);
    return true;
  }();
  static_cast<void>(filled);
  return r;
}

void BM_RawGroupsOfAUser(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(varnock::bench::rawQuery(
        theRegister().path(),
        "SELECT * FROM [GroupMember], [GroupCode]  WHERE [GroupCode].GroupCode = "
        "[GroupMember].GroupCode AND [GroupMember].UserName = 'member'"));
  }
}
void BM_GetDerivedChildrenInGroupCode(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  user.put_Username("member");
  for (auto _ : state) {
    const auto groups = user.GetDerivedChildrenInGroupCode();
    if (!groups || groups->Count() != 50) state.SkipWithError("expected 50 groups");
  }
}

void BM_RawMembersOfAGroup(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(varnock::bench::rawQuery(
        theRegister().path(), "SELECT * FROM [GroupMember] WHERE GroupCode = 'BIG'"));
  }
}
void BM_GetChildrenInGroupMember(benchmark::State& state) {
  varnock::GroupCode group;
  group.put_DSN(theRegister().dsn());
  group.put_GroupCode("BIG");
  for (auto _ : state) {
    const auto members = group.GetChildrenInGroupMember();
    if (!members || members->Count() != 1000) state.SkipWithError("expected 1,000 members");
  }
}

BENCHMARK(BM_RawGroupsOfAUser);
BENCHMARK(BM_GetDerivedChildrenInGroupCode);
BENCHMARK(BM_RawMembersOfAGroup);
BENCHMARK(BM_GetChildrenInGroupMember);

}  // namespace

int main(int argc, char** argv) {
  return varnock::bench::runComparisons(argc, argv,
                                        {{"BM_GetDerivedChildrenInGroupCode", "BM_RawGroupsOfAUser",
                                          1.5, "groups of a user in 50 groups"},
                                         {"BM_GetChildrenInGroupMember", "BM_RawMembersOfAGroup",
                                          1.5, "members of a group of 1,000"}},
                                        {}, [] {
                                          theRegister();
                                          varnock::setEventLog("stderr");
                                        });
}
