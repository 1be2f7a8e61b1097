#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "sim/apps.h"
#include "sim/desktop.h"
#include "sim/displays.h"
#include "sim/faults.h"
#include "sim/file_system.h"
#include "sim/firmware.h"
#include "sim/hot_key.h"
#include "sim/input.h"
#include "sim/kernel_objects.h"
#include "sim/management.h"
#include "sim/mouse.h"
#include "sim/power.h"
#include "sim/processes.h"
#include "sim/registry.h"
#include "sim/scheduler.h"
#include "sim/service_window.h"
#include "sim/services.h"
#include "sim/sessions.h"
#include "sim/settings_view.h"
#include "sim/touch_controller.h"
#include "sim/trace_session.h"
#include "sim/ui.h"
#include "sim/watches.h"

namespace sim {

/// The laptop as it is when the controller starts. Any of the four settings given makes a settings file that holds
/// them, the others at their defaults; without one there is no settings file yet.
struct LaptopOptions {
  std::uint32_t seed = 1;     // one seed is one run
  bool interleaving = false;  // threads lose the turn also between door calls, not only where they wait

  std::optional<std::uint32_t> backlight = {}, backlightDC = {};
  std::optional<bool> powerSaving = {};
  std::optional<std::wstring> saved = {};  // the saved panel power, "On" or "Off"

  int generation = 2;
  bool setupComplete = true;
  bool uiInstalled = true;
  bool uiRunning = false;
};

/// A laptop with a second screen, in memory and in virtual time, and the controller on it. A new one is healthy: on
/// mains, lid open, both panels extended, a user at the desktop, the UI installed, and the controller not started.
/// There is one at a time. The thread that makes it is the test's thread: only it may use the laptop, and all its parts
/// are free to use whenever the test's code runs.
class Laptop {
 public:
  static constexpr std::uint64_t kSettleLimitMs = 600'000;
  static constexpr auto kCheckTool = L"NorvTessaviewCheck.exe";

  explicit Laptop(const LaptopOptions& options = {});
  ~Laptop();
  Laptop(const Laptop&) = delete;
  Laptop& operator=(const Laptop&) = delete;

  /// Whether there is a laptop at all.
  [[nodiscard]] static bool IsOn();

  /// Starts the controller on its main thread, and settles. On a laptop where it has run before, that process is ended
  /// first; what it changed on the laptop stays.
  bool Boot(std::uint64_t settleLimitMs = kSettleLimitMs);

  /// Ends the controller's process where it stands.
  void EndProcess();

  /// What RunController returned; nothing while it runs.
  [[nodiscard]] std::optional<int> ExitCode() const { return exitCode_; }

  /// Runs until every thread of the controller waits without a time limit. Time moves through sleeps and time-outs, but
  /// not to window timers further away. False when that takes longer than the limit.
  bool Settle(std::uint64_t limitMs = kSettleLimitMs) { return scheduler.Settle(limitMs); }

  /// Runs exactly `ms` milliseconds, with all timers that are due.
  void Advance(std::uint64_t ms) { scheduler.Advance(ms); }

  /// Calls `action` in `ms` milliseconds; it must not wait, and settles nothing.
  void After(std::uint64_t ms, std::function<void()> action) { scheduler.After(ms, std::move(action)); }

  [[nodiscard]] std::uint64_t NowMs() const { return scheduler.NowMs(); }

  /// Date and time in 100 ns units since 1601.
  [[nodiscard]] std::uint64_t FileTime() const;

  /// Which process run this is, counted over all laptops: what belongs to an earlier one is void.
  [[nodiscard]] std::uint64_t ProcessRun() const { return processRun_; }

  Scheduler scheduler;
  Faults faults;

  Displays displays;
  Firmware firmware;
  TouchController touch;
  Registry registry;
  FileSystem files;
  SettingsView settings{files};
  TraceSession trace;

  Watches watches;

  Processes processes;
  Management management;
  Desktop desktop;
  ServiceWindow window;
  Input input;
  Mouse mouse;
  Ui ui;
  Apps apps;
  HotKey hotKey;
  Power power;
  Sessions sessions;
  Services services;
  KernelObjects events;

 private:
  void WriteSettings(const LaptopOptions& options);

  std::optional<int> exitCode_;
  bool started_ = false;
  std::uint64_t processRun_;
};

}  // namespace sim
