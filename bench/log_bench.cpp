#include <benchmark/benchmark.h>

#include <atomic>

#include "core/trace_log.h"
#include "sim/laptop.h"

namespace {

std::atomic<int> gSwitch;

/// The least that a statement can cost that may be switched on at run time.
void RelaxedLoadAndBranch(benchmark::State& state) {
  int taken = 0;
  for (auto _ : state) {
    if (gSwitch.load(std::memory_order_relaxed) >= 5) ++taken;
    benchmark::DoNotOptimize(taken);
  }
}
BENCHMARK(RelaxedLoadAndBranch);

void LogNobodyHears(benchmark::State& state) {
  sim::Laptop laptop;
  laptop.trace.Listen(false);
  tessaview::Log(L"registers the provider");
  int value = 0;
  for (auto _ : state) {
    tessaview::Log(L"[PowerSaving] ACDCMode = %d , BatterySaverMode = %d", value, value);
    benchmark::DoNotOptimize(++value);
  }
}
BENCHMARK(LogNobodyHears);

}  // namespace
