#include "sim/laptop.h"

#include <cstdio>
#include <cstdlib>

namespace sim {
namespace {

Parts* gMachine = nullptr;
InstalledProgram gProgram;

[[noreturn]] void Fatal(const char* what, std::string_view where = {}) {
  std::fprintf(stderr, "simulated laptop: %s %.*s\n", what, static_cast<int>(where.size()), where.data());
  std::abort();
}

}  // namespace

bool IsOn() {
  return gMachine != nullptr;
}

Parts& Machine() {
  if (gMachine == nullptr) Fatal("the operating system was called while no laptop is on");
  return *gMachine;
}

DoorCall EnterDoor(const DoorKey& function) {
  auto& machine = Machine();
  if (Scheduler::ThreadName().empty()) Fatal("the operating system was called by a thread that it did not start");
  auto& scheduler = machine.scheduler;
  scheduler.Checkpoint();
  const auto marked = function.waiting.way, way = machine.WayOf(function.waiting);
  const bool waitsForPrograms = marked == os::Waiting::Serving || marked == os::Waiting::ServingInput;
  if (waitsForPrograms && scheduler.LocksHeld() > 0) Fatal("a lock is held in", function.name);
  const auto spoilt = machine.faults.Begin(function);
  const auto delayMs = spoilt.delayMs;
  scheduler.Wait(delayMs > 0 && way == os::Waiting::Instant ? os::Waiting::Deaf : way);
  scheduler.Serve();
  if (delayMs > 0) scheduler.Sleep(delayMs);
  scheduler.Wait(way);
  if (way == os::Waiting::ServingInput && scheduler.InSentMessage()) {
    return DoorCall({.error = os::kComCallRefused});
  }
  return DoorCall(spoilt);
}

bool Laptop::Install(InstalledProgram program) {
  gProgram = program;
  return true;
}

Laptop::Laptop(const LaptopOptions& options) : parts_(options.seed, options.interleaving) {
  parts_.turnsUndocumented = options.turnsUndocumented || std::getenv("LAPTOP_TURNED") != nullptr;
  if (gMachine != nullptr) Fatal("there is a laptop already");
  gMachine = &parts_;
  WriteSettings(options);
  firmware.SetGeneration(options.generation);
  sessions.setupComplete = options.setupComplete;
  sessions.WhenLoggedOff([this] { EndProcess(); });
  apps.uiInstalled = options.uiInstalled;
  processes[kCheckTool].exitCode = options.uiInstalled ? 1 : 0;
  processes.Run(files.ownProgram);
  if (options.uiRunning) ui.Start();
}

Laptop::~Laptop() {
  EndProcess();
  gMachine = nullptr;
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
  parts_.scheduler.StartThread(Scheduler::kMainThread, [this] {
    exitCode_ = gProgram.run();
    parts_.scheduler.MarkEnded();  // the process ends with its main thread
  });
  return Settle(settleLimitMs);
}

void Laptop::EndProcess() {
  parts_.EndProcess(gProgram.forget);
}

}  // namespace sim
