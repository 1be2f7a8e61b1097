#include "os/hooks.h"

#include <array>
#include <atomic>
#include <optional>
#include <utility>

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

constexpr UINT kHookAgain = WM_APP;                  // to a watching thread
std::array<std::atomic<DWORD>, 2> gWatchingThreads;  // by InputHook; 0: none

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
void ServeMessages(const std::function<void()>& onHookAgain) {
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.hwnd == nullptr && message.message == kHookAgain) onHookAgain();
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

Status WatchInput(InputHook watch, int kind, HOOKPROC procedure) {
  SetThreadPriority(GetCurrentThread(), THREAD_PRIORITY_TIME_CRITICAL);
  const auto setHook = [=] { return SetWindowsHookExW(kind, procedure, GetModuleHandleW(nullptr), 0); };
  HHOOK hook = setHook();
  if (hook == nullptr) return win32::LastError();
  auto& thread = gWatchingThreads.at(static_cast<std::size_t>(watch));
  thread = GetCurrentThreadId();
  ServeMessages([&] {
    // An old hook that the system has removed cannot be released, and need not be.
    if (const HHOOK fresh = setHook(); fresh != nullptr) UnhookWindowsHookEx(std::exchange(hook, fresh));
  });
  thread = 0;
  UnhookWindowsHookEx(hook);
  return Done{};
}

}  // namespace

Status WatchKeyboard(const std::function<void(std::uint32_t virtualKey)>& onKey) {
  gOnKey = &onKey;
  return WatchInput(InputHook::Keyboard, WH_KEYBOARD_LL, TakeKey);
}

Status WatchMouse(const std::function<void(MouseEvent event, Point pointer)>& onMouse) {
  gOnMouse = &onMouse;
  return WatchInput(InputHook::Mouse, WH_MOUSE_LL, TakeMouse);
}

bool HookAgain(InputHook hook) {
  const DWORD thread = gWatchingThreads.at(static_cast<std::size_t>(hook));
  return thread != 0 && PostThreadMessageW(thread, kHookAgain, 0, 0) != FALSE;
}

Status WatchWindowEvents(const std::vector<WindowEventRange>& ranges, const OnWindowEvent& onEvent) {
  gOnWindowEvent = &onEvent;
  std::vector<HWINEVENTHOOK> hooks;
  Status outcome = Done{};
  for (const auto& [first, last] : ranges) {
    const HWINEVENTHOOK hook = SetWinEventHook(static_cast<DWORD>(first), static_cast<DWORD>(last), nullptr,
                                               TakeWindowEvent, 0, 0, WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS);
    if (hook == nullptr) {
      outcome = win32::LastError();
      break;
    }
    hooks.push_back(hook);
  }
  if (outcome) ServeMessages([] {});
  for (const HWINEVENTHOOK hook : hooks) UnhookWinEvent(hook);
  return outcome;
}

}  // namespace os
