#pragma once

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "os/waiting.h"

namespace sim {

/// Thrown out of a door call when the simulated process is ended; ends the thread it reaches.
struct ProcessEnded {};

/// What waits to be handed to one thread, of one class of deliveries.
struct Deliveries {
  std::function<bool()> waiting;
  std::function<void()> handOverOne;
};

/// Virtual time and the threads that live in it.
///
/// Every thread of the controller is a real thread, but only the one that has the turn runs; all others wait for it.
/// A thread hands the turn on when it waits or ends, and time stands still while any thread can run. When none can,
/// time jumps to the next deadline. Who is next among those that can run is drawn from a seeded generator, so that one
/// seed is one run. The test's own thread takes part and has the turn while the test's code runs. All data of the
/// simulated laptop belongs to whoever has the turn and needs no lock.
class Scheduler {
 public:
  static constexpr std::uint64_t kSettleLimitMs = 600'000;

  /// The calling thread becomes the test's thread and has the turn.
  Scheduler(std::uint32_t seed, bool interleaving);
  ~Scheduler();
  Scheduler(const Scheduler&) = delete;
  Scheduler& operator=(const Scheduler&) = delete;

  /// Virtual milliseconds since the laptop was switched on, starting well above zero.
  [[nodiscard]] std::uint64_t NowMs() const { return nowMs_; }
  /// Date and time in 100 ns units since 1601; the laptop was switched on on some day in 2020.
  [[nodiscard]] std::uint64_t FileTime() const { return 132'500'000'000'000'000 + nowMs_ * 10'000; }

  // ---- for the thread that has the turn ----

  using Condition = std::function<bool()>;
  enum class Patience { Bounded, Timer };  // Timer: a wait that may last for ever, its deadline is a mere timer's

  /// Waits until `ready` holds or the deadline is reached; returns whether it holds. Throws ProcessEnded when the
  /// process is ended meanwhile. `ready` is asked often and must not wait.
  bool WaitUntil(const Condition& ready, std::optional<std::uint64_t> deadlineMs = {},
                 Patience patience = Patience::Bounded);
  void Sleep(std::uint64_t ms);
  /// The end of a wait of `ms` milliseconds; none of one without a limit (INFINITE).
  [[nodiscard]] std::optional<std::uint64_t> DeadlineIn(std::uint32_t ms) const;

  /// A point where a running thread may lose the turn: when the process is ended, when interleaving was asked for, and
  /// when it has run for suspiciously long without time passing (a loop that polls without sleeping).
  void Checkpoint();

  /// The same between two door calls, for interleaving alone. Never throws.
  void Yield();

  /// Whether the machine acts by itself, on whichever thread that happens to be.
  [[nodiscard]] bool MachineActs() const { return choosing_; }

  // ---- what is handed to a thread while it waits inside a door call ----

  /// How the door call that the calling thread is in lets it wait from here on.
  void Wait(os::Waiting way) { self_->way = way; }
  /// From now on these are deliveries of the calling thread, sent ones or input, until the last ones are taken back.
  void Deliver(Deliveries deliveries, bool isInput = false);
  void TakeBackDeliveries() { self_->sent.pop_back(); }
  /// Hands over what waits now, if the door call under way lets it through.
  void Serve();
  /// Calls `handle` as the system calls a program, outside or in the middle of a door call.
  void CallProgram(const std::function<void()>& handle, bool isSentMessage = false);
  /// Whether the calling thread is handling a message that another thread sent (InSendMessage).
  [[nodiscard]] bool InSentMessage() const { return self_->inSentMessage; }

  /// The names of the controller's threads that have not ended, in the order of their start.
  [[nodiscard]] std::vector<std::wstring> Threads() const;

  /// How many locks the calling thread holds.
  [[nodiscard]] int& LocksHeld() const { return self_->locksHeld; }

  /// Starts a thread of the controller. It runs when it gets the turn. False when the process has ended.
  bool StartThread(std::wstring name, std::function<void()> body);

  /// Calls `action` in `ms` milliseconds; it must not wait. For what the machine does by itself. Cancel takes it back
  /// before it was called.
  using Actions = std::multimap<std::uint64_t, std::function<void()>>;
  Actions::iterator After(std::uint64_t ms, std::function<void()> action);
  void Cancel(Actions::iterator action) { actions_.erase(action); }

  /// The id of the calling thread; 0 is the test's.
  [[nodiscard]] static std::uint32_t ThreadId();

  /// The name of the calling thread; empty for one that no laptop started.
  static constexpr auto kTestThread = L"test", kMainThread = L"main";
  [[nodiscard]] static const std::wstring& ThreadName();

  // ---- for the test's thread; without effect on any other ----

  /// Runs until every thread waits without a time limit; gives up after `limitMs`. True when all wait.
  bool Settle(std::uint64_t limitMs = kSettleLimitMs);

  /// The same at the end of what a test does to the laptop, unless there is a Quiet.
  void SettleStory();
  class Quiet;

  /// Runs exactly `ms` milliseconds, and everything that is due by then.
  void Advance(std::uint64_t ms);

  /// Ends the simulated process: unwinds and joins every thread of the controller.
  void EndProcess();

  /// The process may have threads again.
  void BeginProcess() { ended_ = false; }

  /// Called by the controller's main thread as its last act: no other thread of the process runs on.
  void MarkEnded() { ended_ = true; }

 private:
  struct Participant {
    std::uint32_t id = 0;
    std::wstring name;
    std::thread thread;
    std::condition_variable turn;
    Condition ready;  // empty: can always run
    std::optional<std::uint64_t> deadlineMs;
    Patience patience = Patience::Bounded;
    bool whenQuiet = false;  // the test's thread: runs also once all others wait without a time limit
    bool finished = false;

    os::Waiting way = os::Waiting::Deaf;  // as the door call that it is in has it
    std::vector<Deliveries> sent = {}, input = {};
    bool inSentMessage = false;
    int locksHeld = 0;

    /// The first deliveries that the door call under way lets through; null when there are none.
    [[nodiscard]] const Deliveries* Due() const;
  };

  bool WaitOnce(const Condition& ready, std::optional<std::uint64_t> deadlineMs, Patience patience);
  void ThreadMain(Participant& self, std::function<void()> body);
  [[nodiscard]] bool IsTest(const Participant& participant) const { return &participant == participants_[0].get(); }
  [[nodiscard]] bool CanRun(const Participant& participant) const;
  Participant* PickReady();
  Participant& Next();
  [[nodiscard]] std::optional<std::uint64_t> NextDeadline(bool boundedOnly) const;
  void MoveTimeTo(std::uint64_t ms);
  void RunDueActions();
  void GiveTurnTo(Participant& next);
  void AwaitTurn(Participant& self);
  void HandOn();
  void TestWait(Condition ready, std::uint64_t deadlineMs, bool whenQuiet);
  [[nodiscard]] bool MustUnwind() const;
  static thread_local Participant* self_;

  std::uint64_t nowMs_ = 600'000;
  std::mt19937 generator_;
  const bool interleaving_;
  bool ended_ = false;
  bool quiet_ = false;
  bool choosing_ = false;                   // inside Next(), where nothing may wait
  std::uint32_t checkpointsSinceMove_ = 0;  // since time last moved
  std::uint32_t nextId_ = 0;
  std::vector<std::unique_ptr<Participant>> participants_;  // the first is the test's thread
  Actions actions_;

  std::mutex mutex_;      // guards `current_` only
  Participant* current_;  // who has the turn
};

/// While it lives, nothing that a test does settles the laptop: all of it happens at the same time.
class Scheduler::Quiet {
 public:
  explicit Quiet(Scheduler& scheduler) : scheduler_(scheduler), before_(std::exchange(scheduler.quiet_, true)) {}
  ~Quiet() { scheduler_.quiet_ = before_; }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  Scheduler& scheduler_;
  bool before_;
};

}  // namespace sim
