// SPDX-License-Identifier: MIT
// Benchmark support: a console reporter that, after the runs, prints each
// measured case as a ratio against its baseline from the same run, and the
// target it is held to. A benchmark program's main is usually just:
//   return runComparisons(argc, argv, {{"BM_Assign", "BM_Store", 1.5, "under 1.5x"}});
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace varnock::bench {

struct Comparison {
  std::string measured;
  std::string baseline;
  double targetRatio;  // the measured case may take at most this many times the baseline
  std::string note;
  double maxNanoseconds = 0;       // an absolute bound as well, when not 0
  double maxAddedNanoseconds = 0;  // a bound on measured - baseline, when not 0
};

// A counter of two benchmarks compared the same way (peak heap, bytes).
struct CounterComparison {
  std::string measured;
  std::string baseline;
  std::string counter;
  double targetRatio;
  std::string note;
  double maxValue = 0;  // an absolute bound as well, when not 0
};

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  explicit RatioReporter(std::vector<Comparison> comparisons)
      : comparisons_(std::move(comparisons)) {}

  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type == Run::RT_Iteration) {
        // Times come in the benchmark's own unit; keep them in nanoseconds.
        nanoseconds_[run.benchmark_name()] =
            run.GetAdjustedRealTime() * 1e9 / benchmark::GetTimeUnitMultiplier(run.time_unit);
        for (const auto& [name, counter] : run.counters) {
          counters_[run.benchmark_name() + ":" + name] = counter.value;
        }
      }
    }
    ConsoleReporter::ReportRuns(runs);
  }

  double nanoseconds(const std::string& name) const {
    auto it = nanoseconds_.find(name);
    return it == nanoseconds_.end() ? -1.0 : it->second;
  }
  double counter(const std::string& name, const std::string& counter) const {
    auto it = counters_.find(name + ":" + counter);
    return it == counters_.end() ? -1.0 : it->second;
  }

  // Prints one line per comparison; returns how many missed their target.
  int printRatios() const {
    int missed = 0;
    std::printf("\n%-34s %-30s %9s %8s  %s\n", "measured", "baseline", "ratio", "target", "");
    for (const Comparison& c : comparisons_) {
      const double measured = nanoseconds(c.measured);
      const double baseline = nanoseconds(c.baseline);
      if (measured < 0 || baseline <= 0) continue;  // filtered out of this run
      const double ratio = measured / baseline;
      const bool met = ratio <= c.targetRatio &&
                       (c.maxNanoseconds == 0 || measured <= c.maxNanoseconds) &&
                       (c.maxAddedNanoseconds == 0 || measured - baseline <= c.maxAddedNanoseconds);
      missed += met ? 0 : 1;
      std::printf("%-34s %-30s %8.2fx %7.2fx  %s %.1f ns%s %s\n", c.measured.c_str(),
                  c.baseline.c_str(), ratio, c.targetRatio, met ? "met" : "MISSED", measured,
                  bounds(c, measured - baseline).c_str(), c.note.c_str());
    }
    return missed;
  }

  // Prints one line per counter comparison; returns how many missed their target.
  int printCounterRatios(const std::vector<CounterComparison>& comparisons) const {
    int missed = 0;
    for (const CounterComparison& c : comparisons) {
      const double measured = counter(c.measured, c.counter);
      const double baseline = counter(c.baseline, c.counter);
      if (measured < 0 || baseline <= 0) continue;
      const double ratio = measured / baseline;
      const bool met = ratio <= c.targetRatio && (c.maxValue == 0 || measured < c.maxValue);
      missed += met ? 0 : 1;
      std::printf("%-34s %-30s %8.2fx %7.2fx  %s %.0f against %.0f %s\n",
                  (c.measured + " " + c.counter).c_str(), c.baseline.c_str(), ratio, c.targetRatio,
                  met ? "met" : "MISSED", measured, baseline, c.note.c_str());
    }
    return missed;
  }

 private:
  static std::string bounds(const Comparison& c, double added) {
    std::string text;
    if (c.maxNanoseconds != 0) {
      text += " (at most " + std::to_string(static_cast<int>(c.maxNanoseconds)) + " ns)";
    }
    if (c.maxAddedNanoseconds != 0) {
      text += " (adds " + std::to_string(static_cast<int>(added)) + " ns, at most " +
              std::to_string(static_cast<int>(c.maxAddedNanoseconds)) + ")";
    }
    return text;
  }

  std::vector<Comparison> comparisons_;
  std::map<std::string, double> nanoseconds_;
  std::map<std::string, double> counters_;
};

// The main of a benchmark program: runs its benchmarks after `prepare`,
// prints every comparison, and exits 0 only when every target was met.
inline int runComparisons(int argc, char** argv, std::vector<Comparison> comparisons,
                          std::vector<CounterComparison> counters = {},
                          const std::function<void()>& prepare = {}) {
  benchmark::Initialize(&argc, argv);
  if (prepare) prepare();
  RatioReporter reporter(std::move(comparisons));
  benchmark::RunSpecifiedBenchmarks(&reporter);
  const int missed = reporter.printRatios() + reporter.printCounterRatios(counters);
  benchmark::Shutdown();
  return missed == 0 ? 0 : 1;
}

}  // namespace varnock::bench
