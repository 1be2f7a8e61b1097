#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "sim/parts.h"
#include "sim/settings_view.h"

namespace sim {

/// The laptop as it is when the controller starts. Any of the four settings given makes a settings file that holds
/// them, the others at their defaults; without one there is no settings file yet.
struct LaptopOptions {
  std::uint32_t seed = 1;     // one seed is one run
  bool interleaving = false;  // threads lose the turn also between door calls, not only where they wait
  // Where nobody says whether a wait serves, it is the other way round. The environment says so too (LAPTOP_TURNED).
  bool turnsUndocumented = false;
  std::optional<std::uint32_t> backlight = {}, backlightDC = {};
  std::optional<bool> powerSaving = {};
  std::optional<std::wstring> saved = {};  // the saved panel power, "On" or "Off"
  int generation = 2;
  bool setupComplete = true;
  bool uiInstalled = true;
  bool uiRunning = false;
};

/// The program that laptops boot.
struct InstalledProgram {
  int (*run)() = [] { return 0; };  // all of it, on its main thread; returns its exit code
  void (*forget)() = [] {};         // makes it as it was before it ran for the first time
};

/// A laptop with a second screen, in memory and in virtual time, and the controller on it. A new one is healthy: on
/// mains, lid open, both panels extended, a user at the desktop, the UI installed, and the controller not started.
/// There is one at a time. The thread that makes it is the test's thread: only it may use the laptop, and all its parts
/// are free to use whenever the test's code runs.
class Laptop {
  Parts parts_;  // first, because the references below are to what it holds

 public:
  static constexpr auto kCheckTool = Apps::kCheckTool;

  /// Installs a program on every laptop that is made from now on. Returns true, so that a constant can stand for it.
  static bool Install(InstalledProgram program);

  explicit Laptop(const LaptopOptions& options = {});
  ~Laptop();
  Laptop(const Laptop&) = delete;
  Laptop& operator=(const Laptop&) = delete;

  /// Starts the controller on its main thread, and settles. On a laptop where it has run before, that process is ended
  /// first; what it changed on the laptop stays.
  bool Boot(std::uint64_t settleLimitMs = Scheduler::kSettleLimitMs);

  /// Ends the controller's process where it stands.
  void EndProcess();

  /// What the controller returned; nothing while it runs.
  [[nodiscard]] std::optional<int> ExitCode() const { return exitCode_; }

  /// Runs until every thread of the controller waits without a time limit. Time moves through sleeps and time-outs, but
  /// not to window timers further away. False when that takes longer than the limit.
  bool Settle(std::uint64_t limitMs = Scheduler::kSettleLimitMs) { return parts_.scheduler.Settle(limitMs); }

  /// Runs exactly `ms` milliseconds, with all timers that are due.
  void Advance(std::uint64_t ms) { parts_.scheduler.Advance(ms); }

  /// Calls `action` in `ms` milliseconds; it must not wait, and settles nothing.
  void After(std::uint64_t ms, std::function<void()> action) { parts_.scheduler.After(ms, std::move(action)); }

  /// While the answer is kept, nothing that a test does settles the laptop: it all happens at the same time, but for
  /// gestures of the mouse, which play one after the other.
  [[nodiscard]] Scheduler::Quiet Quietly() { return Scheduler::Quiet(parts_.scheduler); }

  /// The names of the controller's threads.
  [[nodiscard]] std::vector<std::wstring> Threads() const { return parts_.scheduler.Threads(); }

  [[nodiscard]] std::uint64_t NowMs() const { return parts_.scheduler.NowMs(); }

  Faults& faults = parts_.faults;
  Displays& displays = parts_.displays;
  Firmware& firmware = parts_.firmware;
  TouchController& touch = parts_.touch;
  Registry& registry = parts_.registry;
  FileSystem& files = parts_.files;
  SettingsView settings{files};
  TraceSession& trace = parts_.trace;
  Processes& processes = parts_.processes;
  Management& management = parts_.management;
  Desktop& desktop = parts_.desktop;
  ServiceWindow& window = parts_.window;
  Input& input = parts_.input;
  Mouse& mouse = parts_.mouse;
  Hook& keyboardHook = parts_.hooks.keyboard;
  Hook& mouseHook = parts_.hooks.mouse;
  Ui& ui = parts_.ui;
  Apps& apps = parts_.apps;
  HotKey& hotKey = parts_.hotKey;
  Power& power = parts_.power;
  Sessions& sessions = parts_.sessions;
  Services& services = parts_.services;
  KernelObjects& events = parts_.events;

 private:
  void WriteSettings(const LaptopOptions& options);

  std::optional<int> exitCode_;
  bool started_ = false;
};

}  // namespace sim
