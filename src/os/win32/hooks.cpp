#include "os/hooks.h"

#include <optional>

#include "os/win32/win32_support.h"

namespace os {
namespace {

using OnKey = std::function<void(std::uint32_t)>;
using OnMouse = std::function<void(MouseEvent, Point)>;
using OnWindowEvent = std::function<void(WindowEvent, WindowHandle, std::int32_t)>;

// A hook procedure has no parameter of ours; each thread watches for itself.
thread_local const OnKey* gOnKey = nullptr;
thread_local const OnMouse* gOnMouse = nullptr;
thread_local const OnWindowEvent* gOnWindowEvent = nullptr;

LRESULT CALLBACK TakeKey(int code, WPARAM message, LPARAM event) noexcept {
  if (code == HC_ACTION) (*gOnKey)(reinterpret_cast<const KBDLLHOOKSTRUCT*>(event)->vkCode);
  return CallNextHookEx(nullptr, code, message, event);
}

std::optional<MouseEvent> MouseEventOf(WPARAM message) {
  switch (message) {
    case WM_MOUSEMOVE:
      return MouseEvent::Move;
    case WM_LBUTTONDOWN:
      return MouseEvent::LeftDown;
    case WM_LBUTTONUP:
      return MouseEvent::LeftUp;
    default:
      return {};
  }
}

LRESULT CALLBACK TakeMouse(int code, WPARAM message, LPARAM details) noexcept {
  if (const auto event = MouseEventOf(message); code == HC_ACTION && event) {
    const POINT& pointer = reinterpret_cast<const MSLLHOOKSTRUCT*>(details)->pt;
    (*gOnMouse)(*event, {pointer.x, pointer.y});
  }
  return CallNextHookEx(nullptr, code, message, details);
}

void CALLBACK TakeWindowEvent(HWINEVENTHOOK /*hook*/, DWORD event, HWND window, LONG object, LONG /*child*/,
                              DWORD /*thread*/, DWORD /*time*/) noexcept {
  (*gOnWindowEvent)(static_cast<WindowEvent>(event), win32::ToDoor<WindowHandle>(window), object);
}

/// Serves the thread's messages, among which the system calls its hooks, until its loop is quit.
void ServeMessages() {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

Status WatchInput(int kind, HOOKPROC procedure) {
  const HHOOK hook = SetWindowsHookExW(kind, procedure, GetModuleHandleW(nullptr), 0);
  if (hook == nullptr) return win32::LastError();
  ServeMessages();
  UnhookWindowsHookEx(hook);
  return Done{};
}

}  // namespace

Status WatchKeyboard(const std::function<void(std::uint32_t virtualKey)>& onKey) {
  gOnKey = &onKey;
  return WatchInput(WH_KEYBOARD_LL, TakeKey);
}

Status WatchMouse(const std::function<void(MouseEvent event, Point pointer)>& onMouse) {
  gOnMouse = &onMouse;
  return WatchInput(WH_MOUSE_LL, TakeMouse);
}

Status WatchWindowEvents(WindowEvent first, WindowEvent last, const OnWindowEvent& onEvent) {
  gOnWindowEvent = &onEvent;
  const HWINEVENTHOOK hook = SetWinEventHook(static_cast<DWORD>(first), static_cast<DWORD>(last), nullptr,
                                             TakeWindowEvent, 0, 0, WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS);
  if (hook == nullptr) return win32::LastError();
  ServeMessages();
  UnhookWinEvent(hook);
  return Done{};
}

}  // namespace os
