#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>

#include "bench/ratios.h"

namespace {

/// Reports as usual, and keeps each benchmark's time to set it against others of the same run at the end.
class RatioReporter : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override {
    ConsoleReporter::ReportRuns(runs);
    for (const auto& run : runs) {
      if (run.real_accumulated_time == 0 || !Counts(run)) continue;  // one that ended with an error has no time
      seconds_[run.run_name.function_name] =
          run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
    }
  }

  void PrintGoals() const {
    std::puts("");
    for (const auto& [name, baseline, goal] : bench::kRatios) {
      if (!seconds_.contains(name) || !seconds_.contains(baseline)) continue;
      const double ratio = seconds_.at(name) / seconds_.at(baseline);
      std::printf("%-24s %10.2f x %-22s goal %8.1f  %s\n", name, ratio, baseline, goal, Verdict(ratio <= goal));
    }
    for (const auto& [name, goal] : bench::kLimits) {
      if (!seconds_.contains(name)) continue;
      const double taken = seconds_.at(name);
      std::printf("%-24s %10.2g s %-22s goal %8.1g  %s\n", name, taken, "", goal, Verdict(taken <= goal));
    }
  }

 private:
  /// Of a benchmark that is repeated the median counts.
  static bool Counts(const Run& run) {
    return run.run_type == Run::RT_Iteration ? run.repetitions <= 1 : run.aggregate_name == "median";
  }
  static const char* Verdict(bool met) { return met ? "met" : "MISSED"; }
  std::map<std::string, double> seconds_;
};

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
  RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  reporter.PrintGoals();
  return 0;
}
