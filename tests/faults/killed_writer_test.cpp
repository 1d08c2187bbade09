// SPDX-License-Identifier: MIT
// A writer process killed at random moments: whatever it was doing (a
// statement, a commit, the checkpoint when its connection closed), the
// register it leaves is sound and holds every call it had reported as done.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <iostream>
#include <random>
#include <thread>

#include "faults/writer_workload.h"
#include "support/captured_events.h"
#include "support/temp_register.h"

namespace varnock::testing {
namespace {

// What the writer tells its parent after each call: fixed-size, so each
// write to the pipe is whole even when the writer dies.
struct Report {
  std::uint32_t index;
  std::uint32_t ok;
};

std::uint64_t chosenSeed() {
  if (const char* text = std::getenv("VARNOCK_FAULT_SEED")) return std::strtoull(text, nullptr, 10);
  return (static_cast<std::uint64_t>(std::random_device()()) << 32) | std::random_device()();
}

// The steps of one writer: its parent rows, then as many as it gets to.
class Steps {
 public:
  Steps(std::uint64_t seed, const std::string& prefix)
      : source_(seed, prefix), parents_(source_.parents()) {}
  Step next() { return made_ < parents_.size() ? parents_[made_++] : source_.next(); }

 private:
  StepSource source_;
  std::vector<Step> parents_;
  std::size_t made_ = 0;
};

// Runs steps until killed, reporting each one's result before the next.
[[noreturn]] void writeUntilKilled(int out, std::uint64_t seed, const std::string& prefix,
                                   const std::string& dsn) {
  const CapturedEvents quiet;  // refusals stay in memory, not in a shared log file
  Steps steps(seed, prefix);
  for (std::uint32_t i = 0;; ++i) {
    const Report report{i, perform(steps.next(), dsn).ok ? 1u : 0u};
    if (::write(out, &report, sizeof report) != static_cast<ssize_t>(sizeof report)) ::_exit(3);
  }
}

TEST(KilledWriter, EveryReportedCallSurvivesAKillAtAnyMoment) {
  const std::uint64_t seed = chosenSeed();
  std::cout << "seed " << seed << " (VARNOCK_FAULT_SEED=" << seed << " repeats this run)\n";
  RecordProperty("seed", std::to_string(seed));
  std::mt19937_64 random(seed);
  TempRegister reg;
  RegisterModel model;
  constexpr int kKills = 20;
  std::uint64_t reported = 0;
  for (int round = 0; round < kKills; ++round) {
    const std::uint64_t stepSeed = random();
    const std::string prefix = "k" + std::to_string(round) + "-";
    const auto delay = std::chrono::milliseconds(5 + random() % 300);
    int pipeEnds[2];
    ASSERT_EQ(::pipe(pipeEnds), 0);
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      ::close(pipeEnds[0]);
      try {
        writeUntilKilled(pipeEnds[1], stepSeed, prefix, reg.dsn());
      } catch (...) {
        ::_exit(4);
      }
    }
    ::close(pipeEnds[1]);
    std::this_thread::sleep_for(delay);
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
        << "round " << round << ": the writer ended before it was killed, status " << status;

    // What the writer had reported, in order; the call after the last one
    // may have taken effect or not.
    Steps steps(stepSeed, prefix);
    std::uint32_t count = 0;
    Report report;
    while (::read(pipeEnds[0], &report, sizeof report) == static_cast<ssize_t>(sizeof report)) {
      ASSERT_EQ(report.index, count) << "round " << round;
      const Step step = steps.next();
      if (report.ok != 0) {
        EXPECT_TRUE(model.succeeded(step))
            << "round " << round << ": " << describe(step)
            << " reported success, which it cannot from what the register held";
      } else {
        model.failed(step);
      }
      ++count;
    }
    ::close(pipeEnds[0]);
    model.failed(steps.next());
    reported += count;

    const std::string context = "after the kill of round " + std::to_string(round) + " at " +
                                std::to_string(delay.count()) + " ms, " + std::to_string(count) +
                                " calls reported";
    EXPECT_EQ(integrityOf(reg.path()), "ok") << context;
    for (const std::string& difference : model.differencesFrom(reg.path()))
      ADD_FAILURE() << context << ": " << difference;
    if (HasFailure()) return;
    std::cout << "killed after " << delay.count() << " ms: " << count << " calls reported\n";
  }
  std::cout << kKills << " kills, " << reported << " calls reported, " << model.rows()
            << " rows checked\n";
  // Kills that all came before the first call would prove nothing.
  EXPECT_GT(reported, 0u);
}

}  // namespace
}  // namespace varnock::testing
