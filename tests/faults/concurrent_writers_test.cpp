// SPDX-License-Identifier: MIT
// Four writer processes on one register: each adds, updates and deletes rows
// of its own, and all of them write to shared rows (one counter row they
// all update, countries they race to add, one log they all append to).
// Afterwards the register holds every effect of every successful call and
// nothing else. Throughput and latencies are printed, not judged.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <thread>

#include "faults/writer_workload.h"
#include "support/captured_events.h"
#include "support/temp_register.h"
#include "varnock/varnock.h"

namespace varnock::testing {
namespace {

constexpr int kProcesses = 4;
const std::string kCounter = "Shared/Counter";

// One call of one process, as it writes it down for the parent.
struct Call {
  std::string kind;  // "AddUser", ..., or a read: "GetUser", "CountEveryLogFile"
  Step step{};
  bool ok = false;
  std::string lastError;
  std::int64_t micros = 0;
};

// The i-th call of process p: a fixed round of ten kinds.
std::optional<Step> writerStep(int p, int i) {
  const std::string own = "p" + std::to_string(p) + "-";
  const auto user = [&](int at) { return own + "u" + std::to_string(at); };
  const std::string value = own + "v" + std::to_string(i);
  switch (i % 10) {
    case 0:
    case 5:
      return Step{Table::User, Verb::Add, user(i), value};
    case 1:
      return Step{Table::User, Verb::Update, user(i - 1), value};
    case 2:
      return Step{Table::LogFile, Verb::Add, own + "it's entry " + std::to_string(i), value};
    case 3:
      return Step{Table::Parm, Verb::Update, kCounter, value};
    case 4:
      // Every process adds the same countries at about the same time.
      return Step{Table::Country, Verb::Add, "Shared " + std::to_string(i / 10), ""};
    case 6:
      return Step{Table::GroupMember, Verb::Add, "staff/" + user(i - 1), ""};
    case 8:
      return Step{Table::User, Verb::Delete, user(i - 8), ""};
    default:
      return std::nullopt;  // a read
  }
}

Call timed(const std::string& dsn, int p, int i) {
  Call call;
  const auto start = std::chrono::steady_clock::now();
  if (const auto step = writerStep(p, i)) {
    call.kind = methodOf(*step);
    call.step = *step;
    const Outcome outcome = perform(*step, dsn);
    call.ok = outcome.ok;
    call.lastError = outcome.lastError;
  } else if (i % 10 == 7) {
    call.kind = "CountEveryLogFile";
    LogFile log;
    log.put_DSN(dsn);
    try {
      call.ok = log.CountEveryLogFile() >= 0;
    } catch (const std::exception& e) {
      call.lastError = e.what();
    }
  } else {
    call.kind = "GetUser";
    User user;
    user.put_DSN(dsn);
    user.put_Username("p" + std::to_string(p) + "-u" + std::to_string(i - 4));
    call.ok = user.GetUser();
    call.lastError = user.GetLastErrorMessage();
  }
  call.micros = std::chrono::duration_cast<std::chrono::microseconds>(
                    std::chrono::steady_clock::now() - start)
                    .count();
  return call;
}

std::string oneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  std::replace(text.begin(), text.end(), '\r', ' ');
  std::replace(text.begin(), text.end(), '\t', ' ');
  return text;
}

// Waits for the start signal, runs its calls until the count or the time is
// up, then writes them down: "index ok micros kind lastError", one a line.
int writer(int p, int startSignal, int calls, std::chrono::seconds limit, const std::string& dsn,
           const std::filesystem::path& results) {
  const CapturedEvents quiet;  // the refused countries stay out of shared log files
  char go;
  if (::read(startSignal, &go, 1) < 0) return 2;
  const auto deadline = std::chrono::steady_clock::now() + limit;
  std::ofstream out(results);
  for (int i = 0; i < calls && std::chrono::steady_clock::now() < deadline; ++i) {
    const Call call = timed(dsn, p, i);
    out << i << '\t' << call.ok << '\t' << call.micros << '\t' << call.kind << '\t'
        << oneLine(call.lastError) << '\n';
  }
  out.close();
  return out ? 0 : 3;
}

std::vector<Call> readResults(const std::filesystem::path& results, int p) {
  std::vector<Call> calls;
  std::ifstream in(results);
  for (std::string line; std::getline(in, line);) {
    std::istringstream fields(line);
    int i = 0;
    Call call;
    fields >> i >> call.ok >> call.micros;
    fields.ignore(1);
    std::getline(fields, call.kind, '\t');
    std::getline(fields, call.lastError);
    if (const auto step = writerStep(p, i)) call.step = *step;
    calls.push_back(std::move(call));
  }
  return calls;
}

double percentile(std::vector<std::int64_t> micros, double share) {
  if (micros.empty()) return 0;
  std::sort(micros.begin(), micros.end());
  const auto at = static_cast<std::size_t>(share * static_cast<double>(micros.size() - 1));
  return static_cast<double>(micros[at]) / 1000.0;
}

TEST(ConcurrentWriters, FourProcessesKeepEverySuccessfulWriteAndNothingElse) {
  TempRegister reg;
  ASSERT_EQ(firstColumnOf(reg.path(), "PRAGMA journal_mode"), "wal");
  RegisterModel model;
  for (const Step& row : {Step{Table::GroupCode, Verb::Add, "staff", "Staff"},
                          Step{Table::Parm, Verb::Add, kCounter, "start"}}) {
    ASSERT_TRUE(perform(row, reg.dsn()).ok);
    ASSERT_TRUE(model.succeeded(row));
  }

  const int calls = scaled(2500);
  const auto limit = std::chrono::seconds(20);
  int startPipe[2];
  ASSERT_EQ(::pipe(startPipe), 0);
  std::vector<pid_t> children;
  for (int p = 0; p < kProcesses; ++p) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      ::close(startPipe[1]);
      int status = 5;
      try {
        status = writer(p, startPipe[0], calls, limit, reg.dsn(),
                        reg.folder() / ("results-" + std::to_string(p)));
      } catch (...) {
        status = 4;
      }
      ::_exit(status);
    }
    children.push_back(child);
  }
  ::close(startPipe[0]);
  const auto start = std::chrono::steady_clock::now();
  ::close(startPipe[1]);  // every writer starts now
  const auto waitLimit = start + limit + std::chrono::seconds(60);
  for (const pid_t child : children) {
    int status = 0;
    while (::waitpid(child, &status, WNOHANG) == 0) {
      if (std::chrono::steady_clock::now() > waitLimit) {
        for (const pid_t other : children)
          ::kill(other, SIGKILL);
        ::waitpid(child, &status, 0);
        break;
      }
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0)
        << "writer " << child << " ended with status " << status;
  }
  const double seconds =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  if (HasFailure()) return;

  // Own rows: each process's calls in its order.
  std::map<std::string, std::vector<std::int64_t>> micros;
  std::map<std::string, int> countryWins;
  std::set<RowState> counterStates;
  std::int64_t logged = 0, total = 0;
  for (int p = 0; p < kProcesses; ++p) {
    const std::vector<Call> done = readResults(reg.folder() / ("results-" + std::to_string(p)), p);
    EXPECT_GT(done.size(), 0u) << "writer " << p;
    std::optional<Step> lastCounter;
    for (const Call& call : done) {
      micros[call.kind].push_back(call.micros);
      ++total;
      const bool write = call.kind.rfind("Get", 0) != 0 && call.kind.rfind("Count", 0) != 0;
      if (call.kind == "AddCountry") {
        // Losing the race to the same key is the one refusal here.
        if (call.ok) {
          ++countryWins[call.step.key];
        } else {
          countryWins.try_emplace(call.step.key, 0);
          EXPECT_NE(call.lastError.find("UNIQUE"), std::string::npos)
              << "writer " << p << ": " << describe(call.step) << ": " << call.lastError;
        }
        continue;
      }
      EXPECT_TRUE(call.ok) << "writer " << p << ": " << call.kind << " "
                           << (write ? describe(call.step) : "") << ": " << call.lastError;
      if (!write) continue;
      if (call.step.table == Table::Parm) {
        if (call.ok) lastCounter = call.step;
        continue;
      }
      if (call.ok) {
        EXPECT_TRUE(model.succeeded(call.step))
            << "writer " << p << ": " << describe(call.step)
            << " reported success, which it cannot from what the register held";
        if (call.step.table == Table::LogFile) ++logged;
      } else {
        model.failed(call.step);
      }
    }
    if (lastCounter) counterStates.insert(RegisterModel::written(*lastCounter));
  }
  // The counter holds the last update of one of the processes.
  if (counterStates.empty()) counterStates.insert("start");
  model.rowIsOneOf(Table::Parm, kCounter, counterStates);
  // Exactly one process added each shared country.
  for (const auto& [country, wins] : countryWins) {
    EXPECT_EQ(wins, 1) << "country " << country << " added " << wins << " times";
    if (wins > 0) model.succeeded({Table::Country, Verb::Add, country, ""});
  }

  EXPECT_EQ(integrityOf(reg.path()), "ok");
  for (const std::string& difference : model.differencesFrom(reg.path()))
    ADD_FAILURE() << difference;
  EXPECT_EQ(countOf(reg.path(), "SELECT 1 FROM LogFile"), logged);
  EXPECT_EQ(countOf(reg.path(), "SELECT 1 FROM Country"),
            static_cast<std::int64_t>(countryWins.size()));

  std::cout << kProcesses << " processes, " << total << " calls in " << std::fixed
            << std::setprecision(2) << seconds << " s: " << std::setprecision(1)
            << static_cast<double>(total) / seconds << " calls/s\n";
  for (const auto& [kind, times] : micros) {
    std::cout << "  " << std::left << std::setw(18) << kind << std::right << std::setw(5)
              << times.size() << " calls " << std::setw(7)
              << static_cast<double>(times.size()) / seconds << " calls/s  p50 "
              << std::setprecision(2) << std::setw(7) << percentile(times, 0.5) << " ms  p99 "
              << std::setw(7) << percentile(times, 0.99) << " ms\n"
              << std::setprecision(1);
  }
}

}  // namespace
}  // namespace varnock::testing
