// SPDX-License-Identifier: MIT
// AddUser, UpdateUser and DeleteUser by key, each beside the raw SQLite C API
// sending the same statements on one connection kept for the run.
#include <benchmark/benchmark.h>

#include "support/bench_register.h"
#include "support/ratio_reporter.h"
#include "varnock/varnock.h"

namespace {

using varnock::bench::BenchRegister;

BenchRegister& theRegister() {
  static BenchRegister r("writing");
  static const bool filled = [] {
    r.fill({"INSERT INTO [Country] VALUES ('Norway')", varnock::bench::userRow("kept")});
    return true;
  }();
  static_cast<void>(filled);
  return r;
}

// One statement in autocommit on a connection kept for the run, with the
// register's own journal and durability settings: what one writing call
// costs the database once sessions are kept.
const varnock::bench::KeptConnection& kept() {
  static const varnock::bench::KeptConnection connection(theRegister().path());
  return connection;
}
void rawStatement(const std::string& sql) {
  kept().query(sql);
}

std::string rawInsert(const std::string& name) {
  return "INSERT INTO [User] ([UserName], [SiteType], [Firstname], [Lastname], [Country], "
         "[State], [Password], [Email], [Pagetopic], [Bio], [Graphic], [Link], [DateCreated], "
         "[Authorized], [AuthorisationDate], [AuthorisationMessage], [REMOTE_ADDR]) VALUES ('" +
         name +
         "', 'web', 'Jane', 'Doe', 'Norway', 'Oslo', 'secret', 'j@example.org', 'topic', 'bio', "
         "'g.png', 'https://example.org', '2000-05-04 13:45:00', 1, '2001-02-03 04:05:00', "
         "'approved', '10.0.0.1')";
}

void fill(varnock::User& user, const std::string& name) {
  varnock::bench::fillUser(user, theRegister().dsn(), name);
}

void BM_RawInsert(benchmark::State& state) {
  static int n = 0;  // names stay unique across the runs of one program
  for (auto _ : state)
    rawStatement(rawInsert("raw" + std::to_string(n++)));
}
void BM_AddUser(benchmark::State& state) {
  varnock::User user;
  fill(user, "");
  static int n = 0;  // names stay unique across the runs of one program
  for (auto _ : state) {
    user.put_Username("add" + std::to_string(n++));
    if (!user.AddUser()) state.SkipWithError("AddUser failed");
  }
}

void BM_RawUpdate(benchmark::State& state) {
  const std::string sql =
      "UPDATE [User] SET [UserName] = 'kept', [SiteType] = 'web', [Firstname] = 'Jane', "
      "[Lastname] = 'Doe', [Country] = 'Norway', [State] = 'Oslo', [Password] = 'secret', "
      "[Email] = 'j@example.org', [Pagetopic] = 'topic', [Bio] = 'bio', [Graphic] = 'g.png', "
      "[Link] = 'https://example.org', [DateCreated] = '2000-05-04 13:45:00', [Authorized] = 1, "
      "[AuthorisationDate] = '2001-02-03 04:05:00', [AuthorisationMessage] = 'approved', "
      "[REMOTE_ADDR] = '10.0.0.1' WHERE [UserName] = 'kept'";
  for (auto _ : state)
    rawStatement(sql);
}
void BM_UpdateUser(benchmark::State& state) {
  varnock::User user;
  fill(user, "kept");
  for (auto _ : state) {
    if (!user.UpdateUser()) state.SkipWithError("UpdateUser failed");
  }
}

// A delete by key looks the row up first.
void BM_RawDelete(benchmark::State& state) {
  static int n = 0;  // names stay unique across the runs of one program
  for (auto _ : state) {
    state.PauseTiming();
    const std::string name = "rawdel" + std::to_string(n++);
    theRegister().fill({rawInsert(name)});
    state.ResumeTiming();
    const auto rows = kept().query("SELECT * FROM [User] WHERE UserName = '" + name + "'");
    benchmark::DoNotOptimize(rows.data());
    rawStatement("DELETE FROM [User] WHERE UserName = '" + name + "'");
  }
}
void BM_DeleteUser(benchmark::State& state) {
  varnock::User user;
  user.put_DSN(theRegister().dsn());
  static int n = 0;  // names stay unique across the runs of one program
  for (auto _ : state) {
    state.PauseTiming();
    const std::string name = "del" + std::to_string(n++);
    theRegister().fill({rawInsert(name)});
    user.put_Username(name);
    state.ResumeTiming();
    if (!user.DeleteUser()) state.SkipWithError("DeleteUser failed");
  }
}

BENCHMARK(BM_RawInsert);
BENCHMARK(BM_AddUser);
BENCHMARK(BM_RawUpdate);
BENCHMARK(BM_UpdateUser);
BENCHMARK(BM_RawDelete);
BENCHMARK(BM_DeleteUser);

}  // namespace

int main(int argc, char** argv) {
  return varnock::bench::runComparisons(
      argc, argv,
      {{"BM_AddUser", "BM_RawInsert", 1.3, "AddUser, all seventeen columns"},
       {"BM_UpdateUser", "BM_RawUpdate", 1.3, "UpdateUser"},
       {"BM_DeleteUser", "BM_RawDelete", 1.3, "DeleteUser by key"}},
      {}, [] {
        theRegister();
        varnock::setEventLog("stderr");
      });
}
