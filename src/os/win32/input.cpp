#include "os/input.h"

#include "os/win32/win32_support.h"

namespace os {
namespace {

/// The hook procedure has no parameter of ours; each thread watches for itself.
thread_local const std::function<void(std::uint32_t)>* gOnKey = nullptr;

LRESULT CALLBACK OnKeyboard(int code, WPARAM message, LPARAM event) noexcept {
  if (code == HC_ACTION) (*gOnKey)(reinterpret_cast<const KBDLLHOOKSTRUCT*>(event)->vkCode);
  return CallNextHookEx(nullptr, code, message, event);
}

}  // namespace

void WatchKeyboard(const std::function<void(std::uint32_t virtualKey)>& onKey) {
  gOnKey = &onKey;
  const HHOOK hook = SetWindowsHookExW(WH_KEYBOARD_LL, OnKeyboard, GetModuleHandleW(nullptr), 0);
  if (hook == nullptr) return;
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  UnhookWindowsHookEx(hook);
}

bool IsKeyDown(std::uint32_t virtualKey) {
  constexpr SHORT kDown = static_cast<SHORT>(0x8000);
  return (GetAsyncKeyState(static_cast<int>(virtualKey)) & kDown) != 0;
}

void ClickLeftButton() {
  mouse_event(MOUSEEVENTF_LEFTDOWN, 0, 0, 0, 0);
  mouse_event(MOUSEEVENTF_LEFTUP, 0, 0, 0, 0);
}

}  // namespace os
