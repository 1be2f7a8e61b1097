#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <utility>

#include "sim/scheduler.h"

namespace sim {

/// The loops in which the controller's threads wait for their work, until one is told to quit.
class ThreadLoops {
 public:
  explicit ThreadLoops(Scheduler& scheduler) : scheduler_(scheduler) {}

  /// Hands the calling thread what comes into its queue, one after the other, until its loop is quit; also while a
  /// call that it makes serves. `longestMs` grows to the longest that one of them took.
  template <class Item, class Take>
  void Serve(std::deque<Item>& queue, std::uint64_t& longestMs, Take take) {
    const Deliveries deliveries{.waiting = [&queue] { return !queue.empty(); },
                                .handOverOne =
                                    [&] {
                                      const auto item = std::move(queue.front());
                                      queue.pop_front();
                                      const auto start = scheduler_.NowMs();
                                      scheduler_.CallProgram([&] { take(item); });
                                      longestMs = std::max(longestMs, scheduler_.NowMs() - start);
                                    }};
    scheduler_.Deliver(deliveries);
    while (AwaitWork(deliveries.waiting)) deliveries.handOverOne();
    scheduler_.TakeBackDeliveries();
  }

  /// The calling thread's loop ends, with this code, once nothing else is left to serve.
  void Quit(int code) { quits_[Scheduler::ThreadId()] = code; }
  [[nodiscard]] bool IsQuit(std::uint32_t thread) const { return quits_.contains(thread); }

  /// The code with which the calling thread's loop is quit, which it is no longer; nothing when it is not.
  std::optional<int> TakeQuit() {
    const auto quit = quits_.extract(Scheduler::ThreadId());
    return quit ? std::optional(quit.mapped()) : std::nullopt;
  }

  void EndProcess() { quits_.clear(); }

 private:
  /// Waits until the calling thread has something to serve, and returns false when its loop is quit instead.
  bool AwaitWork(const std::function<bool()>& hasWork) {
    const auto thread = Scheduler::ThreadId();
    scheduler_.WaitUntil([&] { return hasWork() || quits_.contains(thread); });
    return hasWork() || !TakeQuit();
  }

  Scheduler& scheduler_;
  std::map<std::uint32_t, int> quits_;  // by thread
};

}  // namespace sim
