#include <benchmark/benchmark.h>

#include "sim/laptop.h"
#include "uilink/channel/ui_record.h"
#include "uilink/commands/ui_commands.h"

namespace {

const auto kBacklightQuery = tessaview::EncodeUiMessage({.text = L"BLGET"});

void DecodeUiRecord(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(tessaview::DecodeUiMessage(kBacklightQuery));
}
BENCHMARK(DecodeUiRecord);

/// The whole way of a "BLGET": decoded, dispatched, answered by the firmware, sent to the UI.
void DispatchBacklightQuery(benchmark::State& state) {
  sim::Laptop laptop({.uiRunning = true});
  laptop.Boot();
  laptop.trace.Listen(false);
  for (auto _ : state) {
    tessaview::OnCopyData(102, kBacklightQuery);
    state.PauseTiming();
    laptop.ui.ForgetReceived();
    laptop.firmware.ForgetRequests();
    state.ResumeTiming();
  }
}
BENCHMARK(DispatchBacklightQuery)->Iterations(20'000);

}  // namespace
