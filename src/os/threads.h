#pragma once

#include <atomic>
#include <cstdint>
#include <functional>

#include "os/waiting.h"

namespace os {

/// Starts a thread that runs `body` and ends with it; nobody joins it (CreateThread, then CloseHandle).
/// `name` shows in debuggers (SetThreadDescription where the system has it). False when no thread can be made.
/// Any thread. An exception must not leave `body`.
bool StartThread(const wchar_t* name, std::function<void()> body);

/// Proves on the simulated laptop that the caller is the controller's main thread, or a test's own: any other ends the
/// program with a message that names it. Does nothing on Windows. For what belongs to the main thread alone.
void ExpectMainThread();

/// Comes before each access of a value that threads share, so that the simulated laptop may run another thread there.
/// Does nothing on Windows. Any thread; it must not hold a std::mutex.
/// kSharedOrder is the order of the accesses to a word. On the simulated laptop only one thread runs at a time anyway,
/// and words that all threads read on their way would make ThreadSanitizer take their races for ordered.
#ifdef _WIN32
inline void SharedAccess() {}
inline constexpr auto kSharedOrder = std::memory_order_seq_cst;
#else
void SharedAccess();
inline constexpr auto kSharedOrder = std::memory_order_relaxed;
#endif

/// A lock that may be held across door calls (CRITICAL_SECTION); the same thread may take it more than once.
/// Fits std::lock_guard. Any thread; blocks while another thread holds it.
class Lock {
 public:
  Lock();
  ~Lock();
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

  void lock();
  void unlock();

 private:
  struct State;
  State* state_;
};
template <>
inline constexpr WaitingMark kWaiting<&Lock::lock>{Waiting::Deaf};

/// Counts what one thread has to do for others, `most` at the most (CreateSemaphoreW).
class Semaphore {
 public:
  explicit Semaphore(std::uint32_t most);
  ~Semaphore();
  Semaphore(const Semaphore&) = delete;
  Semaphore& operator=(const Semaphore&) = delete;

  /// Counts up, unless that would be too many (ReleaseSemaphore). Any thread; returns at once.
  void Post();

  /// Counts down, waiting while the count is 0 (WaitForSingleObject, without a time limit). False when there is no
  /// semaphore, because none could be made.
  [[nodiscard]] bool Wait();

 private:
  struct State;
  State* state_;
};
template <>
inline constexpr WaitingMark kWaiting<&Semaphore::Wait>{Waiting::Deaf};

}  // namespace os
