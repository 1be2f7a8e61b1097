#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "os/desktop.h"
#include "os/types.h"

namespace sim {

/// A message that was posted to a window.
struct PostedMessage {
  std::uint32_t message = 0;
  std::uint64_t wParam = 0;
  std::int64_t lParam = 0;
  friend bool operator==(const PostedMessage&, const PostedMessage&) = default;
};

/// One top-level window. What a test leaves out gets a plausible value.
struct Window {
  std::wstring className = L"Notepad";
  std::wstring title = {};
  std::wstring program = L"C:\\Windows\\System32\\notepad.exe";
  std::uint32_t processId = 0;  // 0: that of the running process of `program`, or of a new one
  bool visible = true;
  os::Rect area = {200, 100, 1200, 800};
  std::uint32_t style = 0x00CF'0000;  // WS_OVERLAPPEDWINDOW
  bool responsive = true;             // false: its thread hangs
  std::uint64_t busyUntilMs = 0;      // its thread answers nothing before this time
  std::vector<PostedMessage> posted = {};
  std::function<void(std::uint64_t kind, os::BytesView record)> copyData = {};  // what it does with WM_COPYDATA
  os::WindowHandle handle = os::WindowHandle::None;
};

/// The top-level windows, top first, and which of them the user works with.
class Desktop {
 public:
  /// Opens what is there before the controller: the shell's desktop, which the user works with at first, and the window
  /// of the firmware's hot-key component.
  void StartShell();

  /// Opens a window on top of the others.
  os::WindowHandle Open(Window window);

  /// Opens a window and makes it the one the user works with.
  os::WindowHandle OpenInForeground(Window window);

  /// Closes a window. If the user worked with it, the topmost visible one left is next.
  void Close(os::WindowHandle window);
  void CloseAll(const std::wstring& className);

  [[nodiscard]] os::WindowHandle Foreground() const { return foreground_; }
  /// Brings a window to the top and to the user; None for the moment when no window is.
  void SetForeground(os::WindowHandle window);

  /// A window by its handle; null when it is gone. Valid until the next change of the desktop.
  [[nodiscard]] Window* Find(os::WindowHandle window);

  /// The topmost window of a class and, if given, a title (both without regard to case); None when there is none.
  [[nodiscard]] os::WindowHandle Find(const std::wstring& className, const wchar_t* title = nullptr) const;

  /// The window behind all others. It is in no list.
  static constexpr auto kDesktopWindow = static_cast<os::WindowHandle>(0x1'0008);
  [[nodiscard]] os::WindowHandle Shell() const { return shell_; }

  /// All windows, top first.
  [[nodiscard]] const std::vector<Window>& Windows() const { return windows_; }

  /// Hands a copy-data record to a window, waiting while its thread is busy or hangs. False when the window is gone or
  /// did not take the record before `deadlineMs`.
  bool DeliverCopyData(os::WindowHandle window, std::uint64_t kind, os::BytesView record,
                       std::optional<std::uint64_t> deadlineMs = {});

 private:
  std::uint64_t lastHandle_ = 0x0001'0010;
  os::WindowHandle foreground_ = os::WindowHandle::None, shell_ = os::WindowHandle::None;
  std::vector<Window> windows_;
};

}  // namespace sim
