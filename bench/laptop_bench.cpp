#include <benchmark/benchmark.h>

#include <random>

#include "sim/laptop.h"

namespace {

void BootLaptop(benchmark::State& state) {
  for (auto _ : state) {
    sim::Laptop laptop;
    laptop.Boot();
  }
}
BENCHMARK(BootLaptop)->Unit(benchmark::kMillisecond);

constexpr int kEventsOfADay = 10'000;
constexpr std::uint32_t kPauseMs = 24 * 3'600'000 / kEventsOfADay;

void SomethingHappens(sim::Laptop& laptop, std::mt19937& chance) {
  switch (chance() % 10) {
    case 0:
      return laptop.power.Unplug();
    case 1:
      return laptop.power.Plug();
    case 2:
      return laptop.power.BatterySaver(chance() % 2 == 0);
    case 3:
      return laptop.ui.Send(L"BLSET", {.percent = static_cast<std::int32_t>(chance() % 101)});
    case 4:
      return laptop.ui.Send(L"BLGET");
    case 5:
      return laptop.ui.Send(chance() % 2 == 0 ? L"POWERSAVERON" : L"POWERSAVEROFF");
    case 6:
      laptop.hotKey.PressF6(static_cast<int>(chance() % 3));
      return laptop.hotKey.EndF6(2);
    case 7:
      laptop.firmware.Flip(chance() % 2 == 0);
      return laptop.hotKey.FlipChanged();
    case 8:
      return laptop.ui.Send(L"GETFREQUENCY");
    default:
      return laptop.power.Broadcast(sim::Power::kStatusChange);
  }
}

/// A day of mixed events, one every nine seconds.
void DayOfTenThousandEvents(benchmark::State& state) {
  for (auto _ : state) {
    sim::Laptop laptop({.uiRunning = true});
    laptop.Boot();
    laptop.trace.Listen(false);
    std::mt19937 chance(1);
    for (int event = 0; event < kEventsOfADay; ++event) {
      SomethingHappens(laptop, chance);
      laptop.Advance(kPauseMs);
    }
  }
}
BENCHMARK(DayOfTenThousandEvents)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace
