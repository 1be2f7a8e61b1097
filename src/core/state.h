#pragma once

#include <atomic>
#include <mutex>
#include <type_traits>
#include <utility>

#include "os/threads.h"

// What the controller keeps while it runs. Each value lies in the .cpp of its one owner, and its type says who may
// touch it: Shared for any thread, Guarded for steps that several threads take in turn, MainThreadOnly for the main
// thread.
//
// A name that begins with g, or is spelt like a flag, is that of something process-wide, also where it is a field of a
// record or a question.
namespace tessaview {

/// Every value knows how to become its initial self again. One intrusive list, built during static initialisation,
/// lets a simulated laptop start the controller afresh in the same test process.
class State {
 public:
  State(const State&) = delete;
  State& operator=(const State&) = delete;

  /// Puts every value back to its initial state. Only while no controller thread runs.
  static void ResetAll();

 protected:
  State();
  virtual ~State() = default;

 private:
  virtual void Reset() = 0;
  State* next_;
};

template <class T>
inline constexpr bool kFitsOneWord = std::is_trivially_copyable_v<T> && sizeof(T) <= sizeof(void*);

/// A value that any thread may read and write at any time: a word atomically, anything larger as a locked copy, so that
/// a reader sees the old or the new value whole. `initial` is what a fresh process starts with.
template <class T, bool = kFitsOneWord<T>>
class Shared final : State {
 public:
  explicit Shared(T initial = T{}) : initial_(initial), value_(initial) {}

  [[nodiscard]] T get() const {
    os::SharedAccess();
    return peek();
  }
  /// The same, where no other thread is let in before: for what is asked all the time.
  [[nodiscard]] T peek() const { return value_.load(os::kSharedOrder); }
  void set(T value) {
    os::SharedAccess();
    value_.store(value, os::kSharedOrder);
  }

  /// Sets the value and returns the one it had.
  T exchange(T value) {
    os::SharedAccess();
    return value_.exchange(value, os::kSharedOrder);
  }

 private:
  void Reset() override { value_ = initial_; }
  const T initial_;
  std::atomic<T> value_;
};

template <class T>
class Shared<T, false> final : State {
 public:
  explicit Shared(T initial = T{}) : initial_(initial), value_(std::move(initial)) {}

  [[nodiscard]] T get() const {
    os::SharedAccess();
    const std::lock_guard hold(mutex_);
    return value_;
  }
  void set(T value) {
    os::SharedAccess();
    const std::lock_guard hold(mutex_);
    value_ = std::move(value);
  }

  /// Sets the value and returns the one it had.
  T exchange(T value) {
    os::SharedAccess();
    const std::lock_guard hold(mutex_);
    return std::exchange(value_, std::move(value));
  }

  /// Ask returns what `read(const T&)` returns, and Update what `change(T&)` returns, which may change parts of the
  /// value. Both run under the lock, and must neither call the operating system nor touch another shared value.
  template <class Read>
  [[nodiscard]] auto Ask(Read read) const {
    os::SharedAccess();
    const std::lock_guard hold(mutex_);
    return read(value_);
  }
  template <class Change>
  auto Update(Change change) {
    os::SharedAccess();
    const std::lock_guard hold(mutex_);
    return change(value_);
  }

 private:
  void Reset() override { set(initial_); }
  const T initial_;
  mutable std::mutex mutex_;
  T value_;
};

/// A value that several threads change, one step at a time. A step may call the operating system, but must not wait for
/// another program.
template <class T>
class Guarded final : State {
 public:
  /// Returns what `step(T&)` returns, with the lock held while it runs.
  template <class Step>
  auto Do(Step step) {
    const std::lock_guard hold(lock_);
    return step(value_);
  }

 private:
  void Reset() override { value_ = T{}; }
  os::Lock lock_;
  T value_;
};

/// A value of the main thread. The simulated laptop ends a test in which another thread touches it.
template <class T>
class MainThreadOnly final : State {
 public:
  explicit MainThreadOnly(T initial = T{}) : initial_(initial), value_(std::move(initial)) {}

  T* operator->() { return &**this; }
  T& operator*() {
    os::ExpectMainThread();
    return value_;
  }

 private:
  void Reset() override { value_ = initial_; }
  const T initial_;
  T value_;
};

}  // namespace tessaview
