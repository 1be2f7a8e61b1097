// What a mouse event, a drag and a window event cost: nothing of it may be felt in the pointer.

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>

#include "os/desktop.h"
#include "os/hooks.h"
#include "os/threads.h"
#include "sim/laptop.h"
#include "windows/foreground_watch.h"
#include "windows/full_screen.h"
#include "windows/mover/drag_watch.h"
#include "windows/window_validity.h"

namespace {

using os::MouseEvent;
using os::Point;

constexpr Point kOnBPanel = {500, 300}, kOnCPanel = {900, 1300};

/// A running controller and a UI that is ready; nobody listens to the log.
class Machine : public sim::Laptop {
 public:
  Machine() : Laptop({.saved = L"On", .uiRunning = true}) {
    Boot();
    ui.Send(L"ALIVE");
    trace.Listen(false);
  }

  /// A window is being dragged and the overlay is shown, the pointer in none of its areas.
  void DragWindow(Point from) {
    const auto dragged = desktop.OpenInForeground({.area = {from.x - 200, from.y - 10, from.x + 400, from.y + 200}});
    mouse.Grab(dragged, from);
    mouse.MoveTo({from.x + 90, from.y - 80});
    if (ui.Received().empty()) std::abort();
  }
};

void Move(benchmark::State& state, Point pointer) {
  for (auto _ : state) tessaview::OnMouse(MouseEvent::Move, pointer);
}

void MouseIdle(benchmark::State& state) {
  Machine laptop;
  Move(state, kOnBPanel);
}
BENCHMARK(MouseIdle);

void MouseInNavigatorBand(benchmark::State& state) {
  Machine laptop;
  Move(state, {960, 1593});
}
BENCHMARK(MouseInNavigatorBand);

void MouseInBTracker(benchmark::State& state) {
  Machine laptop;
  laptop.DragWindow(kOnBPanel);
  Move(state, kOnBPanel);
}
BENCHMARK(MouseInBTracker);

void MouseInCTracker(benchmark::State& state) {
  Machine laptop;
  laptop.DragWindow(kOnCPanel);
  Move(state, kOnCPanel);
}
BENCHMARK(MouseInCTracker);

/// The queue behind the hung UI is full when it begins, and every move enters or leaves an area. Only the callback is
/// timed, not the model's window that follows the pointer.
void MouseWithUiHung(benchmark::State& state) {
  using Clock = std::chrono::steady_clock;
  Machine laptop;
  laptop.DragWindow(kOnBPanel);
  laptop.ui.Hang();
  bool inArea = false;
  for (auto _ : state) {
    inArea = !inArea;
    laptop.mouse.SetPosition(inArea ? Point{kOnBPanel.x + 70, kOnBPanel.y + 90} : Point{kOnBPanel.x, kOnBPanel.y});
    const auto start = Clock::now();
    tessaview::OnMouse(MouseEvent::Move, kOnBPanel);
    state.SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
  }
}
BENCHMARK(MouseWithUiHung)->UseManualTime();

// ---- On the system's way to the hook, which is the same for both, and whose threads hand on to each other ----

void MoveToAndFro(benchmark::State& state, sim::Laptop& laptop) {
  std::int32_t step = 0;
  for (auto _ : state) laptop.mouse.MoveTo({kOnBPanel.x + (++step & 1), kOnBPanel.y});
}

void MoveOntoEmptyCallback(benchmark::State& state) {
  sim::Laptop laptop;
  os::StartThread(L"empty", [] { return os::WatchMouse([](MouseEvent, Point) {}); });
  laptop.Settle();
  MoveToAndFro(state, laptop);
}
BENCHMARK(MoveOntoEmptyCallback)->MinTime(0.1)->Repetitions(9)->ReportAggregatesOnly();

void MoveOntoController(benchmark::State& state) {
  sim::Laptop laptop({.uiInstalled = false});
  os::StartThread(L"mouse", [] { return os::WatchMouse(tessaview::OnMouse); });
  laptop.Settle();
  MoveToAndFro(state, laptop);
}
BENCHMARK(MoveOntoController)->MinTime(0.1)->Repetitions(9)->ReportAggregatesOnly();

// ---- Window events ----

void LocationChangeFiltered(benchmark::State& state) {
  Machine laptop;
  for (auto _ : state) tessaview::OnForegroundEvent(os::kObjectCursor);
}
BENCHMARK(LocationChangeFiltered);

void LocationChangeOfTheSameWindow(benchmark::State& state) {
  Machine laptop;
  for (auto _ : state) tessaview::OnForegroundEvent(os::kObjectWindow);
}
BENCHMARK(LocationChangeOfTheSameWindow);

void ValidityCheck(benchmark::State& state) {
  Machine laptop;
  const auto window = laptop.desktop.OpenInForeground({});
  for (auto _ : state) benchmark::DoNotOptimize(tessaview::IsValidWindow(window, window));
}
BENCHMARK(ValidityCheck);

void FullScreenTest(benchmark::State& state) {
  Machine laptop;
  const auto window = laptop.desktop.OpenInForeground({.area = {0, 0, 1920, 1080}, .style = 0});
  for (auto _ : state) benchmark::DoNotOptimize(tessaview::IsFullScreenWindow(window));
}
BENCHMARK(FullScreenTest);

}  // namespace
