#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace os {

using Bytes = std::vector<std::uint8_t>;
using BytesView = std::span<const std::uint8_t>;

/// A point of the desktop, in pixels (POINT).
struct Point {
  std::int32_t x = 0, y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

/// A rectangle of the desktop, in pixels; right and bottom are exclusive (RECT).
struct Rect {
  std::int32_t left = 0, top = 0, right = 0, bottom = 0;
  friend bool operator==(const Rect&, const Rect&) = default;
};

/// A width and a height, in pixels (SIZE).
struct Size {
  std::int32_t width = 0, height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

/// A top-level or child window (HWND).
enum class WindowHandle : std::uint64_t { None = 0 };

/// One monitor of the desktop (HMONITOR).
enum class MonitorHandle : std::uint64_t { None = 0 };

/// A failed call's system error code (GetLastError, or an HRESULT where a call gives one).
struct Error {
  std::uint32_t code = 0;
};

/// A list or text grew between the question for its size and the reading (ERROR_INSUFFICIENT_BUFFER).
inline constexpr std::uint32_t kInsufficientBuffer = 122;

/// The outcome of a door call that can fail: a value, or the system's error code.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : outcome_(std::move(value)) {}
  Result(Error error) : outcome_(error) {}

  explicit operator bool() const { return std::holds_alternative<T>(outcome_); }
  T& operator*() { return std::get<T>(outcome_); }
  const T& operator*() const { return std::get<T>(outcome_); }
  T* operator->() { return &**this; }
  const T* operator->() const { return &**this; }

  /// The error code of a failed call; 0 for a success.
  [[nodiscard]] std::uint32_t error() const { return *this ? 0 : std::get<Error>(outcome_).code; }

 private:
  std::variant<T, Error> outcome_;
};

struct Done {};

/// The outcome of a door call that gives nothing but success or an error code.
using Status = Result<Done>;

/// Owns one handle of the system and closes it at the end of its scope. `Close` never blocks or throws.
template <class Raw, void (*Close)(Raw) noexcept>
class Owned {
 public:
  Owned() = default;
  explicit Owned(Raw raw) : raw_(raw) {}
  Owned(Owned&& other) noexcept : raw_(other.release()) {}
  Owned& operator=(Owned&& other) noexcept {
    if (this != &other) reset(other.release());
    return *this;
  }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  ~Owned() { reset(); }

  explicit operator bool() const { return raw_ != Raw::None; }
  [[nodiscard]] Raw get() const { return raw_; }

  /// Gives the handle away; nobody closes it here any more.
  Raw release() { return std::exchange(raw_, Raw::None); }

  void reset(Raw raw = Raw::None) {
    if (raw_ != Raw::None) Close(raw_);
    raw_ = raw;
  }

 private:
  Raw raw_ = Raw::None;
};

}  // namespace os
