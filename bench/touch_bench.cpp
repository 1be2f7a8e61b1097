#include <benchmark/benchmark.h>

#include <array>

#include "touch/report_thinning.h"

namespace {

void TouchReportThinning(benchmark::State& state) {
  std::array<std::uint8_t, 64> report{1, 1};
  std::uint32_t counter = 0;
  for (auto _ : state) {
    auto step = tessaview::ThinReports(counter, report);
    counter = step.nextCounter;
    report[1] ^= static_cast<std::uint8_t>(counter >> 4 & 1);
    benchmark::DoNotOptimize(step);
  }
}
BENCHMARK(TouchReportThinning);

}  // namespace
