#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "os/types.h"

namespace sim {

inline constexpr std::uint32_t kWsExToolWindow = 0x80;  // extended style WS_EX_TOOLWINDOW

/// A message that was posted to a window.
struct PostedMessage {
  std::uint32_t message = 0;
  std::uint64_t wParam = 0;
  std::int64_t lParam = 0;
  friend bool operator==(const PostedMessage&, const PostedMessage&) = default;
};

enum class ShowState { Normal, Minimized, Maximized };

/// One window. What a test leaves out gets a plausible value. A window is moved and shown through the desktop, which
/// keeps place and show state true to each other.
struct Window {
  std::wstring className = L"Notepad";
  std::wstring title = {};
  std::wstring program = L"C:\\Windows\\System32\\notepad.exe";
  std::uint32_t processId = 0;  // 0: that of the running process of `program`, or of a new one
  bool visible = true;
  os::Rect area = {200, 100, 1200, 800};
  std::uint32_t style = 0x00CF'0000;  // WS_OVERLAPPEDWINDOW; with WS_MINIMIZE or WS_MAXIMIZE it opens that way
  bool responsive = true;             // false: its thread hangs
  std::uint64_t busyUntilMs = 0;      // its thread answers nothing before this time
  std::vector<PostedMessage> posted = {};
  // What it does with WM_COPYDATA, and when it has answered: an empty function says at once.
  std::function<std::function<bool()>(std::uint64_t kind, os::BytesView record)> copyData = {};

  std::uint32_t extendedStyle = 0;
  os::WindowHandle parent = os::WindowHandle::None;  // it is a part of this one and moves along with it
  os::WindowHandle owner = os::WindowHandle::None;   // it goes when this one goes
  bool adaptsToScale = true;                         // resizes itself when it comes to a monitor of another scale
  bool refusesMoves = false;                         // its program lets nobody move or maximise it
  bool closesWhenAsked = true;
  std::uint32_t closesAfterMs = 0;                           // how long it takes to close
  std::uint32_t lingersMs = 0;                               // how long it is still there after its process ended
  std::function<void(os::WindowHandle self)> onChange = {};  // when it was shown or moved; may close it, must not wait

  // Kept by the desktop.
  ShowState state = ShowState::Normal;
  os::Rect normalArea = {};          // where it belongs while it is minimised or maximised
  bool restoresToMaximized = false;  // while it is minimised
  os::WindowHandle handle = os::WindowHandle::None;

  /// Where it belongs while it is neither minimised nor maximised.
  [[nodiscard]] os::Rect NormalArea() const { return state == ShowState::Normal ? area : normalArea; }

  /// The style bits as the system tells them: visibility and show state are what they are now.
  [[nodiscard]] std::uint32_t StyleBits() const;

  [[nodiscard]] bool IsTopmost() const;

  /// Whether the user sees it as a window of its own.
  [[nodiscard]] bool IsUp() const {
    return visible && state != ShowState::Minimized && parent == os::WindowHandle::None;
  }

  /// Whether the system hands the user's work to it when another window goes.
  [[nodiscard]] bool TakesOver() const;
};

}  // namespace sim
