#pragma once

#include <cstdint>
#include <functional>

namespace os {

/// Watches the keyboard from the calling thread: hooks it for all programs and serves the thread's messages, which is
/// how the system calls `onKey`, with the virtual key of each press and each release, until the thread's message loop
/// is quit (SetWindowsHookExW with WH_KEYBOARD_LL, GetMessageW, UnhookWindowsHookEx). Returns at once when the keyboard
/// cannot be hooked. `onKey` holds up every key of the user and must return within microseconds; the key is always
/// passed on (CallNextHookEx).
void WatchKeyboard(const std::function<void(std::uint32_t virtualKey)>& onKey);

/// Whether a key is down now (GetAsyncKeyState). Any thread.
[[nodiscard]] bool IsKeyDown(std::uint32_t virtualKey);
inline constexpr std::uint32_t kKeyP = 0x50, kKeyLeftWindows = 0x5B;  // 'P', VK_LWIN

/// Presses and releases the left mouse button where the pointer is (mouse_event). Any thread.
void ClickLeftButton();

}  // namespace os
