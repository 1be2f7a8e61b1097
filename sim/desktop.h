#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "os/desktop.h"
#include "os/types.h"
#include "os/window_control.h"
#include "sim/displays.h"
#include "sim/file_system.h"
#include "sim/processes.h"
#include "sim/scheduler.h"
#include "sim/screen.h"
#include "sim/window.h"
#include "sim/window_events.h"

namespace sim {

/// An edge of a display.
enum class Edge { Left, Top, Right, Bottom };

/// The windows, top first, and which of them the user works with. What happens to a window is told to those who watch
/// window events. Nothing here settles the laptop, and only what says so waits.
class Desktop {
 public:
  class Door;

  /// There are the shell's desktop, which the user works with at first, and the window of the hot-key component.
  Desktop(Scheduler& scheduler, const FileSystem& files, const Displays& displays, Processes& processes,
          WindowEvents& events);

  /// Opens a window on top of the others; only a topmost one comes above topmost ones.
  os::WindowHandle Open(Window window);

  /// Opens a window and makes it the one the user works with.
  os::WindowHandle OpenInForeground(Window window);

  /// Opens a taskbar at an edge of a display, as wide or as high as `thickness` says; the work area ends there.
  os::WindowHandle OpenTaskbar(const Screen& screen, Edge edge, std::int32_t thickness);

  /// Closes a window with its children and those it owns. If the user worked with it, the topmost one left is next.
  void Close(os::WindowHandle window);
  void CloseAll(const std::wstring& className);

  /// The user sees this desktop. While he sees another, as when his session is not at the console, programs here have
  /// no foreground window, and keys and mouse do nothing.
  bool userIsHere = true;

  [[nodiscard]] os::WindowHandle Foreground() const { return foreground_; }
  /// Brings a window to the top and to the user; None for the moment when no window is.
  void SetForeground(os::WindowHandle window);

  /// Tells those who watch window events that something happened, and returns how many they are; nobody hears of the
  /// controller's own windows.
  int Raise(os::WindowEvent event, os::WindowHandle window, std::int32_t object = os::kObjectWindow);

  // ---- Finding ----

  /// A window by its handle; null when it is gone. Valid until the next change of the desktop.
  [[nodiscard]] Window* Find(os::WindowHandle window);
  [[nodiscard]] const Window* Find(os::WindowHandle window) const;

  /// The topmost window of a class and, if given, a title (both without regard to case); None when there is none.
  [[nodiscard]] os::WindowHandle Find(const std::wstring& className, const wchar_t* title = nullptr) const;
  /// The same among the children of a window, or with None among the top-level windows; null stands for any class.
  [[nodiscard]] os::WindowHandle FindIn(os::WindowHandle parent, const wchar_t* className,
                                        const wchar_t* title = nullptr) const;

  /// The innermost visible window at a point.
  [[nodiscard]] os::WindowHandle At(os::Point point) const;

  /// The end of a window's chain of parents, or of parents and owners.
  [[nodiscard]] os::WindowHandle Root(os::WindowHandle window) const;
  [[nodiscard]] os::WindowHandle RootOwner(os::WindowHandle window) const;
  [[nodiscard]] bool IsVisible(os::WindowHandle window) const;
  /// The monitor of a window; of a minimised one where it belongs, of a gone one the primary.
  [[nodiscard]] os::MonitorHandle MonitorOf(os::WindowHandle window) const;

  // ---- The displays as windows see them: those with a picture of their own, less what the taskbars take ----

  /// The monitors in the system's order.
  [[nodiscard]] std::vector<os::Monitor> Monitors() const;
  /// The monitor that most of an area lies on, or else the nearest; nothing while there is none.
  [[nodiscard]] std::optional<os::Monitor> MonitorUnder(const os::Rect& area) const;
  /// A monitor's dots per inch; 96 when it is unknown.
  [[nodiscard]] std::uint32_t DpiOf(os::MonitorHandle monitor) const;
  /// The point of the desktop that is nearest to this one.
  [[nodiscard]] os::Point Onto(os::Point point) const;

  /// The window behind all others. It is in no list.
  static constexpr auto kDesktopWindow = static_cast<os::WindowHandle>(0x1'0008);
  [[nodiscard]] os::WindowHandle Shell() const { return shell_; }

  /// All windows, top first, children among them.
  [[nodiscard]] const std::vector<Window>& Windows() const { return windows_; }

  // ---- Showing and moving, by the user or a program ----

  bool Show(os::WindowHandle window, os::ShowCommand command);
  os::Status Move(os::WindowHandle window, const os::Rect& area);
  void SetTopmost(os::WindowHandle window, bool topmost);

  /// Puts a window where the mouse drags it, as a normal one.
  void Drag(os::WindowHandle window, const os::Rect& area);

  /// What was asked of a window through the door once its program answered, refused or not: L"show 6",
  /// L"move 0 0 1920 1080" (place and size), L"place 3 (0,0,800,600)" (how it is shown and its rectangle), L"topmost
  /// 1", L"exstyle 08000000", L"close". Kept also when the window is gone.
  [[nodiscard]] std::vector<std::wstring> Journal(os::WindowHandle window) const;

 private:
  using Concerned = std::function<bool(const Window&)>;
  void CloseWhere(const Concerned& concerned);
  void BringToTop(os::WindowHandle window);
  void PassOnForeground();
  [[nodiscard]] os::Rect WorkArea(const os::Rect& monitor) const;
  [[nodiscard]] os::Point PlacementOrigin(const Window& window) const;
  [[nodiscard]] os::Rect Adapted(const Window& window, const os::Rect& to) const;
  void SetArea(Window& window, const os::Rect& area);
  void Enter(Window& window, ShowState state);
  void TellProgram(os::WindowHandle window);

  Scheduler& scheduler_;
  const FileSystem& files_;
  const Displays& displays_;
  Processes& processes_;
  WindowEvents& events_;
  std::uint64_t lastHandle_ = 0x0001'0010;
  os::WindowHandle foreground_ = os::WindowHandle::None, shell_ = os::WindowHandle::None;
  std::vector<Window> windows_;
  std::map<os::WindowHandle, std::vector<std::wstring>> journals_;
};

/// How a journal names a change of a window's show state.
[[nodiscard]] inline std::wstring ShowEntry(os::ShowCommand command) {
  return L"show " + std::to_wstring(static_cast<std::uint32_t>(command));
}

class Desktop::Door : public Desktop {
 public:
  using Desktop::Desktop;

  /// Writes to a window's journal what was asked of it.
  void Note(os::WindowHandle window, std::wstring entry);
  [[nodiscard]] os::Result<os::WindowPlacement> Placement(os::WindowHandle window) const;
  os::Status SetPlacement(os::WindowHandle window, const os::WindowPlacement& placement);

  // ---- The windows' threads ----

  /// Waits while a window's thread is busy or hangs. False when the window is gone or does not answer in time.
  bool AwaitAnswer(os::WindowHandle window, std::optional<std::uint64_t> deadlineMs = {});

  /// Waits while any window of a process is busy or hangs.
  void AwaitIdle(std::uint32_t processId, std::uint64_t deadlineMs);

  /// Hands a copy-data record to a window, waiting while its thread is busy or hangs. False when the window is gone or
  /// did not take the record before `deadlineMs`.
  bool DeliverCopyData(os::WindowHandle window, std::uint64_t kind, os::BytesView record,
                       std::optional<std::uint64_t> deadlineMs = {});

  /// A window's thread shows it once it comes to that; one that hangs never does.
  void AskToShow(os::WindowHandle window, os::ShowCommand command);

  /// The window does what it does when it is asked to close.
  void AskToClose(os::WindowHandle window);

 private:
  [[nodiscard]] bool AllAnswer(const Concerned& concerned) const;
  bool AwaitThreads(const Concerned& concerned, std::optional<std::uint64_t> deadlineMs);
};

}  // namespace sim
