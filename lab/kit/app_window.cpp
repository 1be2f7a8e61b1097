#include "kit/app_window.h"

#include <array>
#include <stdexcept>

#include "kit/journal.h"

namespace lab {
namespace {

constexpr UINT kPatienceMs = 10000;

/// A window of this process with this title; null while there is none.
HWND FindWindowOf(std::uint32_t processId, const std::wstring& title) {
  struct Search {
    std::uint32_t processId;
    const std::wstring& title;
    HWND found;
  } search{processId, title, nullptr};
  const auto look = [](HWND window, LPARAM parameter) -> BOOL {
    auto& wanted = *reinterpret_cast<Search*>(parameter);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    std::array<wchar_t, 260> text{};
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    if (owner == wanted.processId && wanted.title == text.data()) wanted.found = window;
    return wanted.found == nullptr;
  };
  EnumWindows(look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

/// Has a window's thread served everything sent before; false when it does not within `patienceMs`.
bool Serves(HWND window, UINT patienceMs) {
  return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, patienceMs, nullptr) != 0;
}

/// Whether a window covers what its monitor leaves to windows. It counts as maximised before it has that size.
bool CoversItsMonitor(HWND window) {
  MONITORINFO info{};
  info.cbSize = sizeof info;
  RECT area{}, common{};
  return GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &info) && GetWindowRect(window, &area) &&
         IntersectRect(&common, &area, &info.rcWork) && EqualRect(&common, &info.rcWork);
}

}  // namespace

AppWindow::AppWindow(const AppOptions& options)
    : process_(ChildProcess::Start(LabFolder() + L"lab-app.exe", CommandLineOf(options))) {
  const bool opened = process_ && Eventually([&] {
                        window_ = FindWindowOf(process_.id(), options.title);
                        return window_ != nullptr && GetForegroundWindow() == window_;
                      });
  if (!opened) throw std::runtime_error("an application did not open its window");
  // What it painted is on the screen once it waits for messages.
  (void)Serves(window_, kPatienceMs);
}

os::Rect AppWindow::Area() const {
  RECT area{};
  GetWindowRect(window_, &area);
  return {area.left, area.top, area.right, area.bottom};
}

Panel AppWindow::Panel() const {
  if (!IsWindowVisible(window_) || IsIconic(window_)) return lab::Panel::None;
  MONITORINFO info{};
  info.cbSize = sizeof info;
  if (!GetMonitorInfoW(MonitorFromWindow(window_, MONITOR_DEFAULTTONULL), &info)) return lab::Panel::None;
  return (info.dwFlags & MONITORINFOF_PRIMARY) != 0 ? lab::Panel::B : lab::Panel::C;
}

ShowState AppWindow::State() const {
  if (!IsWindow(window_)) return ShowState::Gone;
  if (!IsWindowVisible(window_)) return ShowState::Hidden;
  if (IsIconic(window_)) return ShowState::Minimized;
  return IsZoomed(window_) ? ShowState::Maximized : ShowState::Normal;
}

bool AppWindow::Fills(lab::Panel panel) const {
  return Eventually([&] { return State() == ShowState::Maximized && Panel() == panel && CoversItsMonitor(window_); });
}

void AppWindow::Show(int command) const {
  ShowWindow(window_, command);
  (void)Serves(window_, kPatienceMs);
}

os::Point AppWindow::TitleBar() const {
  const os::Rect area = Area();
  const int border = GetSystemMetrics(SM_CYSIZEFRAME), bar = GetSystemMetrics(SM_CYCAPTION);
  return {(area.left + area.right) / 2, area.top + border + bar / 2};
}

bool AppWindow::IsBeingMoved() const {
  return GetPropW(window_, kInMoveSize) != nullptr;
}

bool AppWindow::BringToFront() const {
  return Eventually([&] {
    SetForegroundWindow(window_);
    return GetForegroundWindow() == window_;
  });
}

void AppWindow::Hang() const {
  constexpr UINT kNoticeableMs = 50;
  PostMessageW(window_, RegisterWindowMessageW(kAppHang), 0, 0);
  (void)Eventually([&] { return !Serves(window_, kNoticeableMs); });
}

std::ostream& operator<<(std::ostream& out, Panel panel) {
  return out << static_cast<char>(panel);
}

std::ostream& operator<<(std::ostream& out, ShowState state) {
  constexpr std::array kNames{"gone", "hidden", "minimised", "normal", "maximised"};
  return out << kNames.at(static_cast<std::size_t>(state));
}

}  // namespace lab
