#include "sim/laptop.h"

#include <cstdio>
#include <cstdlib>

#include "app/start_up.h"
#include "core/state.h"

namespace sim {
namespace {

Laptop* gMachine = nullptr;
std::uint64_t gProcessRuns = 0;

[[noreturn]] void Fatal(const char* what) {
  std::fprintf(stderr, "simulated laptop: %s\n", what);
  std::abort();
}

}  // namespace

Laptop& Machine() {
  if (gMachine == nullptr) Fatal("the operating system was called while no laptop is on");
  return *gMachine;
}

DoorCall EnterDoor(const DoorKey& function) {
  auto& laptop = Machine();
  if (!laptop.scheduler.TakesPart()) Fatal("the operating system was called by a thread that it did not start");
  laptop.scheduler.Checkpoint();
  if (const auto delayMs = laptop.faults.Begin(function); delayMs > 0) laptop.scheduler.Sleep(delayMs);
  return laptop.faults.Outcome(function);
}

void PostToServiceWindow(std::function<void(const os::ServiceWindowEvents&)> message) {
  Machine().window.Post(std::move(message));
}

Laptop::Laptop(const LaptopOptions& options)
    : scheduler(options.seed, options.interleaving), processRun_(++gProcessRuns) {
  if (gMachine != nullptr) Fatal("there is a laptop already");
  gMachine = this;
  WriteSettings(options);
  firmware.SetGeneration(options.generation);
  sessions.setupComplete = options.setupComplete;
  apps.uiInstalled = options.uiInstalled;
  processes[kCheckTool].exitCode = options.uiInstalled ? 1 : 0;
  processes.Run(files.ownProgram);
  desktop.StartShell();
  if (options.uiRunning) ui.Start();
}

Laptop::~Laptop() {
  EndProcess();
  gMachine = nullptr;
}

bool Laptop::IsOn() {
  return gMachine != nullptr;
}

std::uint64_t Laptop::FileTime() const {
  constexpr std::uint64_t kSwitchedOn = 132'500'000'000'000'000, kUnitsPerMs = 10'000;  // some day in 2020
  return kSwitchedOn + NowMs() * kUnitsPerMs;
}

void Laptop::WriteSettings(const LaptopOptions& options) {
  if (!options.backlight && !options.backlightDC && !options.powerSaving && !options.saved) return;
  settings.Set(L"Tessaview", options.saved.value_or(L"On"));
  settings.Set(L"Backlight", std::to_wstring(options.backlight.value_or(116)));
  settings.Set(L"BacklightDC", std::to_wstring(options.backlightDC.value_or(116)));
  settings.Set(L"PowerSaving", options.powerSaving.value_or(true) ? L"1" : L"0");
  settings.Set(L"Mode", L"Cursor");
}

bool Laptop::Boot(std::uint64_t settleLimitMs) {
  if (started_) EndProcess();
  started_ = true;
  exitCode_.reset();
  scheduler.StartThread(L"main", [this] {
    exitCode_ = tessaview::RunController();
    scheduler.MarkEnded();  // the process ends with its main thread
  });
  return Settle(settleLimitMs);
}

void Laptop::EndProcess() {
  scheduler.EndProcess();
  tessaview::State::ResetAll();  // while what the values may close is still there
  desktop.Close(window.Handle());
  window.Reset();
  power.UnregisterAll();
  sessions.EndProcess();
  input.EndProcess();
  mouse.EndProcess();
  desktop.EndProcess();
  apps.EndProcess();
  firmware.EndProcess();
  trace.EndProcess();
  touch.EndProcess();
  watches.EndProcess();
  management.EndProcess();
  processes.CloseAll();
  events.CloseAll();
  processRun_ = ++gProcessRuns;
  scheduler.BeginProcess();
}

}  // namespace sim
