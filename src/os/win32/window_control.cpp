#include "os/window_control.h"

#include "os/win32/win32_support.h"

namespace os {
namespace {

/// Whether the window's thread took the message in time.
bool SendInTime(WindowHandle window, UINT message, std::uint32_t timeoutMs) {
  return SendMessageTimeoutW(win32::NativeOf(window), message, 0, 0, SMTO_ABORTIFHUNG, timeoutMs, nullptr) != 0;
}

}  // namespace

Status ShowWindow(WindowHandle window, ShowCommand command) {
  SetLastError(ERROR_SUCCESS);  // a hidden window is no failure
  return win32::DoneOrLastError(::ShowWindow(win32::NativeOf(window), static_cast<int>(command)));
}

void AskToShow(WindowHandle window, ShowCommand command) {
  ShowWindowAsync(win32::NativeOf(window), static_cast<int>(command));
}

Status MoveWindow(WindowHandle window, std::int32_t x, std::int32_t y, std::int32_t width, std::int32_t height) {
  return win32::DoneOrLastError(::MoveWindow(win32::NativeOf(window), x, y, width, height, TRUE));
}

Result<WindowPlacement> GetPlacement(WindowHandle window) {
  WINDOWPLACEMENT native{};
  native.length = sizeof native;
  if (GetWindowPlacement(win32::NativeOf(window), &native) == FALSE) return win32::LastError();
  const RECT& normal = native.rcNormalPosition;
  return WindowPlacement{.flags = native.flags,
                         .showCmd = static_cast<ShowCommand>(native.showCmd),
                         .minimizedPosition = {native.ptMinPosition.x, native.ptMinPosition.y},
                         .maximizedPosition = {native.ptMaxPosition.x, native.ptMaxPosition.y},
                         .rcNormalPosition = {normal.left, normal.top, normal.right, normal.bottom}};
}

Status SetPlacement(WindowHandle window, const WindowPlacement& placement) {
  const Rect& normal = placement.rcNormalPosition;
  WINDOWPLACEMENT native{};
  native.length = sizeof native;
  native.flags = placement.flags;
  native.showCmd = static_cast<UINT>(placement.showCmd);
  native.ptMinPosition = {placement.minimizedPosition.x, placement.minimizedPosition.y};
  native.ptMaxPosition = {placement.maximizedPosition.x, placement.maximizedPosition.y};
  native.rcNormalPosition = {normal.left, normal.top, normal.right, normal.bottom};
  return win32::DoneOrLastError(SetWindowPlacement(win32::NativeOf(window), &native));
}

Status SetTopmost(WindowHandle window, bool topmost) {
  return win32::DoneOrLastError(SetWindowPos(win32::NativeOf(window), topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0,
                                             0, SWP_NOSIZE | SWP_NOMOVE));
}

void SetWindowExtendedStyle(WindowHandle window, std::uint32_t style) {
  SetWindowLongW(win32::NativeOf(window), GWL_EXSTYLE, static_cast<LONG>(style));
}

bool AnswersWithin(WindowHandle window, std::uint32_t timeoutMs) {
  return SendInTime(window, WM_NULL, timeoutMs);
}

bool AskToClose(WindowHandle window, std::uint32_t timeoutMs) {
  return SendInTime(window, WM_CLOSE, timeoutMs);
}

}  // namespace os
