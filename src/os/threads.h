#pragma once

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
