#include <benchmark/benchmark.h>

#include "display/panel_geometry.h"
#include "display/panel_placement.h"
#include "sim/laptop.h"

namespace {

/// What every display change costs when nothing is wrong, the panel search left out.
void PlacementCheckUnchanged(benchmark::State& state) {
  sim::Laptop laptop;
  laptop.trace.Listen(false);
  tessaview::InitialDisplay();
  for (auto _ : state) tessaview::CheckCPanel_Position_Orientation();
  if (!laptop.displays.SettingsChanges().empty()) state.SkipWithError("the desktop was changed");
}
BENCHMARK(PlacementCheckUnchanged);

/// The same with the panel search before it.
void PanelSearch(benchmark::State& state) {
  sim::Laptop laptop;
  laptop.trace.Listen(false);
  for (auto _ : state) tessaview::InitialDisplay();
}
BENCHMARK(PanelSearch);

}  // namespace
