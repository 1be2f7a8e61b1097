#pragma once

#include <atomic>
#include <mutex>
#include <type_traits>
#include <utility>

namespace tessaview {

/// Every process-wide value knows how to become its initial self again. One intrusive list, built during static
/// initialisation, lets a simulated laptop start the controller afresh in the same test process.
class ProcessWideBase {
 public:
  ProcessWideBase(const ProcessWideBase&) = delete;
  ProcessWideBase& operator=(const ProcessWideBase&) = delete;

  /// Puts every process-wide value back to its initial state. Only while no controller thread runs.
  static void ResetAll();

 protected:
  ProcessWideBase();
  virtual ~ProcessWideBase() = default;

 private:
  virtual void Reset() = 0;
  ProcessWideBase* next_;
};

template <class T>
inline constexpr bool kFitsOneWord = std::is_trivially_copyable_v<T> && sizeof(T) <= sizeof(void*);

/// A value that any thread may read and write at any time: a word atomically, anything larger as a locked copy, so that
/// a reader sees the old or the new value whole. `initial` is what a fresh process starts with.
template <class T, bool = kFitsOneWord<T>>
class ProcessWide final : ProcessWideBase {
 public:
  explicit ProcessWide(T initial = T{}) : initial_(initial), value_(initial) {}

  [[nodiscard]] T get() const { return value_.load(); }
  void set(T value) { value_.store(value); }

  /// Sets the value and returns the one it had.
  T exchange(T value) { return value_.exchange(value); }

 private:
  void Reset() override { value_ = initial_; }
  const T initial_;
  std::atomic<T> value_;
};

template <class T>
class ProcessWide<T, false> final : ProcessWideBase {
 public:
  explicit ProcessWide(T initial = T{}) : initial_(initial), value_(std::move(initial)) {}

  [[nodiscard]] T get() const {
    const std::lock_guard hold(mutex_);
    return value_;
  }
  void set(T value) {
    const std::lock_guard hold(mutex_);
    value_ = std::move(value);
  }

  /// Sets the value and returns the one it had.
  T exchange(T value) {
    const std::lock_guard hold(mutex_);
    return std::exchange(value_, std::move(value));
  }

  /// Changes parts of the value in place: `change(T&)` runs under the lock and must not call the operating system.
  template <class Change>
  void update(Change change) {
    const std::lock_guard hold(mutex_);
    change(value_);
  }

 private:
  void Reset() override { set(initial_); }
  const T initial_;
  mutable std::mutex mutex_;
  T value_;
};

}  // namespace tessaview
