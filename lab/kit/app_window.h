#pragma once

#include <windows.h>

#include <cstdint>
#include <ostream>
#include <string>

#include "apps/app_options.h"
#include "kit/process.h"
#include "os/types.h"

namespace lab {

enum class Panel : char { None = '-', B = 'B', C = 'C' };
enum class ShowState { Gone, Hidden, Minimized, Normal, Maximized };

/// A running application with its window. It is ended by force, if it still runs, when this goes.
class AppWindow {
 public:
  /// Starts it and waits for its window, which is in the foreground then. Throws when it does not come.
  explicit AppWindow(const std::wstring& title) : AppWindow(AppOptions{.title = title}) {}
  explicit AppWindow(const AppOptions& options);
  AppWindow(const AppWindow&) = delete;
  AppWindow& operator=(const AppWindow&) = delete;

  [[nodiscard]] HWND handle() const { return window_; }

  /// The window as commands of the UI's name it.
  [[nodiscard]] std::uint64_t number() const { return reinterpret_cast<std::uintptr_t>(window_); }

  /// Its place on the desktop; all zero when it is gone.
  [[nodiscard]] os::Rect Area() const;

  /// The panel that most of it is on; None while it is not seen.
  [[nodiscard]] lab::Panel Panel() const;

  [[nodiscard]] ShowState State() const;

  /// Waits until it is maximised on that panel; false when it is not in time.
  [[nodiscard]] bool Fills(lab::Panel panel) const;

  /// Shows it otherwise (ShowWindow with SW_MAXIMIZE and so on), and waits until it has served that.
  void Show(int command) const;

  /// The middle of its title bar, and whether the user holds it there, or at its border.
  [[nodiscard]] os::Point TitleBar() const;
  [[nodiscard]] bool IsBeingMoved() const;

  /// Makes it the window that the user works with; false when it does not become that.
  [[nodiscard]] bool BringToFront() const;

  /// It serves nothing any more, as a hung program. Returns once it hangs.
  void Hang() const;

  [[nodiscard]] bool WaitForEnd() const { return process_.WaitForExit().has_value(); }

 private:
  ChildProcess process_;
  HWND window_ = nullptr;
};

std::ostream& operator<<(std::ostream& out, Panel panel);
std::ostream& operator<<(std::ostream& out, ShowState state);

}  // namespace lab
