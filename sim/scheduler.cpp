#include "sim/scheduler.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <utility>

#include "sim/race_view.h"

namespace sim {
namespace {

constexpr std::uint32_t kPollsWithoutTime = 20'000;      // door calls before a polling loop costs a millisecond
constexpr std::uint64_t kLongestTestWaitMs = 3'600'000;  // a test that waits longer waits for nothing

const std::wstring kNobody;

bool Never() {
  return false;
}

}  // namespace

thread_local Scheduler::Participant* Scheduler::self_ = nullptr;

Scheduler::Scheduler(std::uint32_t seed, bool interleaving) : generator_(seed), interleaving_(interleaving) {
  participants_.push_back(std::make_unique<Participant>());
  participants_[0]->name = kTestThread;
  current_ = self_ = participants_[0].get();
}

Scheduler::~Scheduler() {
  self_ = nullptr;
}

std::uint32_t Scheduler::ThreadId() {
  return self_ == nullptr ? 0 : self_->id;
}

const std::wstring& Scheduler::ThreadName() {
  return self_ == nullptr ? kNobody : self_->name;
}

std::vector<std::wstring> Scheduler::Threads() const {
  std::vector<std::wstring> names;
  for (const auto& participant : participants_) {
    if (!IsTest(*participant) && !participant->finished) names.push_back(participant->name);
  }
  return names;
}

// ---- Waiting ----

bool Scheduler::MustUnwind() const {
  return ended_ && !IsTest(*self_) && std::uncaught_exceptions() == 0;
}

bool Scheduler::WaitUntil(const Condition& ready, std::optional<std::uint64_t> deadlineMs, Patience patience) {
  const auto& self = *self_;
  const auto orDue = [&] { return ready() || self.Due() != nullptr; };
  for (;;) {
    if (!WaitOnce(orDue, deadlineMs, patience)) return false;
    if (ready()) return true;
    // What ends the wait meanwhile takes effect only after this.
    Serve();
    if (deadlineMs && nowMs_ >= *deadlineMs) return ready();
  }
}

bool Scheduler::WaitOnce(const Condition& ready, std::optional<std::uint64_t> deadlineMs, Patience patience) {
  if (choosing_) throw std::logic_error("the machine's own actions must not wait");
  if (MustUnwind()) throw ProcessEnded{};
  if (ready() || (ended_ && !IsTest(*self_))) return ready();
  if (!IsTest(*self_) && self_->way == os::Waiting::Instant) throw std::logic_error("an instant door call waits");

  if (IsTest(*self_)) {
    TestWait(ready, deadlineMs.value_or(nowMs_ + kLongestTestWaitMs), !deadlineMs);
    if (!deadlineMs && !ready()) throw std::runtime_error("the test's thread waits for something that never happens");
    return ready();
  }
  self_->ready = ready;
  self_->deadlineMs = deadlineMs;
  self_->patience = patience;
  HandOn();
  if (MustUnwind()) throw ProcessEnded{};
  return ready();
}

void Scheduler::Sleep(std::uint64_t ms) {
  WaitUntil(Never, nowMs_ + ms);
}

std::optional<std::uint64_t> Scheduler::DeadlineIn(std::uint32_t ms) const {
  constexpr std::uint32_t kForever = 0xFFFF'FFFF;
  return ms == kForever ? std::nullopt : std::optional(nowMs_ + ms);
}

void Scheduler::Checkpoint() {
  if (choosing_ || IsTest(*self_)) return;
  if (MustUnwind()) throw ProcessEnded{};
  if (ended_) return;
  if (++checkpointsSinceMove_ > kPollsWithoutTime) {
    self_->way = os::Waiting::Deaf;
    Sleep(1);
  } else {
    Yield();
  }
}

void Scheduler::Yield() {
  if (!interleaving_ || choosing_ || ended_ || IsTest(*self_)) return;
  if (generator_() % 4 == 0) HandOn();  // can run again at once, so this only gives others a chance
}

// ---- What is handed to a thread while it waits ----

const Deliveries* Scheduler::Participant::Due() const {
  const auto find = [](const auto& among) -> const Deliveries* {
    for (const auto& deliveries : among) {
      if (deliveries.waiting()) return &deliveries;
    }
    return nullptr;
  };
  if (way != os::Waiting::Serving && way != os::Waiting::ServingInput) return nullptr;
  if (const auto* due = find(sent)) return due;
  return way == os::Waiting::ServingInput ? find(input) : nullptr;
}

void Scheduler::Deliver(Deliveries deliveries, bool isInput) {
  (isInput ? self_->input : self_->sent).push_back(std::move(deliveries));
}

void Scheduler::Serve() {
  if (choosing_) return;  // the machine acts, and no program waits here
  while (const auto* due = self_->Due()) due->handOverOne();
}

void Scheduler::CallProgram(const std::function<void()>& handle, bool isSentMessage) {
  const auto way = std::exchange(self_->way, os::Waiting::Deaf);
  const auto inSentMessage = std::exchange(self_->inSentMessage, isSentMessage);
  handle();
  self_->way = way;
  self_->inSentMessage = inSentMessage;
}

// ---- Threads ----

bool Scheduler::StartThread(std::wstring name, std::function<void()> body) {
  if (ended_) return false;
  std::erase_if(participants_, [](const auto& participant) {
    if (!participant->finished || participant.get() == self_) return false;
    participant->thread.join();
    return true;
  });
  auto& participant = *participants_.emplace_back(std::make_unique<Participant>());
  participant.id = ++nextId_;
  participant.name = std::move(name);
  Releases(&participant);
  participant.thread =
      std::thread([this, &participant, body = std::move(body)]() mutable { ThreadMain(participant, std::move(body)); });
  return true;
}

void Scheduler::ThreadMain(Participant& self, std::function<void()> body) {
  self_ = &self;
  AwaitTurn(self);
  Acquires(&self);
  try {
    if (!ended_) body();
  } catch (const ProcessEnded&) {
    // Unwound, as asked.
  }
  {
    const Seen seen;
    body = nullptr;  // what it holds is closed while it has the turn
  }
  Releases(&self);
  self.finished = true;
  GiveTurnTo(Next());
}

Scheduler::Actions::iterator Scheduler::After(std::uint64_t ms, std::function<void()> action) {
  return actions_.emplace(nowMs_ + ms, std::move(action));
}

// ---- Choosing who runs ----

bool Scheduler::CanRun(const Participant& participant) const {
  if (participant.finished) return false;
  if (IsTest(participant)) return participant.ready && participant.ready();
  if (ended_ || !participant.ready) return true;
  return participant.ready() || (participant.deadlineMs && nowMs_ >= *participant.deadlineMs);
}

Scheduler::Participant* Scheduler::PickReady() {
  std::vector<Participant*> ready;
  for (const auto& participant : participants_) {
    if (CanRun(*participant)) ready.push_back(participant.get());
  }
  return ready.empty() ? nullptr : ready[generator_() % ready.size()];
}

Scheduler::Participant& Scheduler::Next() {
  choosing_ = true;
  Participant& test = *participants_[0];
  Participant* next = nullptr;
  while (next == nullptr) {
    RunDueActions();
    next = PickReady();
    if (next != nullptr) break;
    // At one and the same time the test comes last: what is due is done when it looks.
    const bool quiet = test.whenQuiet && !NextDeadline(true);
    if (quiet || (test.deadlineMs && nowMs_ >= *test.deadlineMs)) {
      next = &test;
    } else {
      MoveTimeTo(std::min(*test.deadlineMs, NextDeadline(false).value_or(*test.deadlineMs)));
    }
  }
  choosing_ = false;
  return *next;
}

std::optional<std::uint64_t> Scheduler::NextDeadline(bool boundedOnly) const {
  std::optional<std::uint64_t> earliest;
  const auto consider = [&earliest](std::uint64_t ms) { earliest = std::min(earliest.value_or(ms), ms); };
  for (const auto& participant : participants_) {
    if (participant->finished || IsTest(*participant) || !participant->deadlineMs) continue;
    if (boundedOnly && participant->patience == Patience::Timer) continue;
    consider(*participant->deadlineMs);
  }
  if (!actions_.empty()) consider(actions_.begin()->first);
  return earliest;
}

void Scheduler::MoveTimeTo(std::uint64_t ms) {
  nowMs_ = std::max(nowMs_, ms);
  checkpointsSinceMove_ = 0;
}

void Scheduler::RunDueActions() {
  while (!actions_.empty() && actions_.begin()->first <= nowMs_) {
    const auto action = actions_.extract(actions_.begin());
    action.mapped()();
  }
}

// ---- The turn ----

void Scheduler::GiveTurnTo(Participant& next) {
  const std::lock_guard hold(mutex_);
  current_ = &next;
  next.turn.notify_one();
}

void Scheduler::AwaitTurn(Participant& self) {
  std::unique_lock hold(mutex_);
  self.turn.wait(hold, [this, &self] { return current_ == &self; });
}

void Scheduler::HandOn() {
  Participant& self = *self_;
  Participant& next = Next();
  if (&next != &self) {
    GiveTurnTo(next);
    AwaitTurn(self);
  }
  self.ready = nullptr;
  self.deadlineMs.reset();
  self.patience = Patience::Bounded;
  self.whenQuiet = false;
}

// ---- The test's thread ----

void Scheduler::TestWait(Condition ready, std::uint64_t deadlineMs, bool whenQuiet) {
  self_->ready = std::move(ready);
  self_->deadlineMs = deadlineMs;
  self_->whenQuiet = whenQuiet;
  HandOn();
}

bool Scheduler::Settle(std::uint64_t limitMs) {
  if (choosing_ || !IsTest(*self_)) return false;
  const auto limit = nowMs_ + limitMs;
  TestWait(Never, limit, true);
  return !NextDeadline(true) && !PickReady();
}

void Scheduler::SettleStory() {
  if (!quiet_) Settle();
}

void Scheduler::Advance(std::uint64_t ms) {
  if (choosing_ || !IsTest(*self_)) return;
  TestWait(Never, nowMs_ + ms, false);
}

void Scheduler::EndProcess() {
  ended_ = true;
  WaitUntil([this] {
    return std::all_of(participants_.begin() + 1, participants_.end(),
                       [](const auto& thread) { return thread->finished; });
  });
  for (auto thread = participants_.begin() + 1; thread != participants_.end(); ++thread) {
    Acquires(thread->get());
    (*thread)->thread.join();
  }
  participants_.erase(participants_.begin() + 1, participants_.end());
}

}  // namespace sim
