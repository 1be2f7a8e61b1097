#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "os/clock.h"
#include "os/threads.h"
#include "sim/parts.h"
#include "sim/race_view.h"

namespace os {
using sim::Machine;

std::uint64_t NowMs() {
  sim::Enter<&NowMs>();
  return Machine().scheduler.NowMs();
}

std::uint64_t SystemFileTime() {
  sim::Enter<&SystemFileTime>();
  return Machine().scheduler.FileTime();
}

void Sleep(std::uint32_t ms) {
  sim::Enter<&Sleep>();
  Machine().scheduler.WaitUntil([] { return false; }, Machine().scheduler.DeadlineIn(ms));
}

bool StartThread(const wchar_t* name, std::function<void()> body) {
  if (sim::Enter<&StartThread>().failed()) return false;
  return Machine().scheduler.StartThread(name, std::move(body));
}

void ExpectMainThread() {
  const auto& thread = sim::Scheduler::ThreadName();
  if (!sim::IsOn() || thread == sim::Scheduler::kMainThread || thread == sim::Scheduler::kTestThread) return;
  std::fprintf(stderr, "simulated laptop: this belongs to the main thread, and was touched by \"%ls\"\n",
               thread.c_str());
  std::abort();
}

void SharedAccess() {
  if (sim::IsOn() && !sim::Scheduler::ThreadName().empty()) Machine().scheduler.Yield();
}

/// A lock outlives the laptops it is used on: what an earlier process run left of it is void.
struct Lock::State {
  std::uint64_t processRun = 0;
  std::uint32_t owner = 0;
  std::uint32_t depth = 0;  // 0: nobody holds it

  bool Free() {
    if (std::exchange(processRun, Machine().processRun) != processRun) depth = 0;
    return depth == 0;
  }
};

Lock::Lock() : state_(new State) {}

Lock::~Lock() {
  delete state_;
}

void Lock::lock() {
  if (!sim::IsOn()) return;  // no threads either, then
  sim::Enter<&Lock::lock>();
  const auto thread = sim::Scheduler::ThreadId();
  const auto mayTake = [this, thread] { return state_->Free() || state_->owner == thread; };
  if (!Machine().scheduler.WaitUntil(mayTake)) return;  // being unwound
  sim::Acquires(state_);
  state_->owner = thread;
  ++state_->depth;
  ++Machine().scheduler.LocksHeld();
}

void Lock::unlock() {
  if (!sim::IsOn()) return;
  if (!state_->Free() && state_->owner == sim::Scheduler::ThreadId()) {
    sim::Releases(state_);
    --state_->depth;
    --Machine().scheduler.LocksHeld();
  }
}

struct Semaphore::State {
  std::uint32_t most, count = 0;
};

Semaphore::Semaphore(std::uint32_t most) : state_(new State{most}) {}

Semaphore::~Semaphore() {
  delete state_;
}

void Semaphore::Post() {
  sim::Enter<&Semaphore::Post>();
  sim::Releases(state_);
  state_->count = std::min(state_->count + 1, state_->most);
}

bool Semaphore::Wait() {
  if (sim::Enter<&Semaphore::Wait>().failed()) return false;
  if (!Machine().scheduler.WaitUntil([this] { return state_->count > 0; })) return false;  // being unwound
  --state_->count;
  sim::Acquires(state_);
  return true;
}

}  // namespace os
