#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "os/types.h"
#include "os/waiting.h"

// Watching what the user and the programs do. Each function takes the calling thread for itself: it hooks, serves the
// thread's messages, which is how the system calls the function it was given, and unhooks when the thread's message
// loop is quit. It returns at once, with the error, when nothing can be hooked.
namespace os {

/// Watches the keyboard for all programs, with the virtual key of each press and each release (SetWindowsHookExW with
/// WH_KEYBOARD_LL, GetMessageW, UnhookWindowsHookEx). `onKey` holds up every key of the user and must return within
/// microseconds; the key is always passed on (CallNextHookEx). The thread runs before all others from then on
/// (SetThreadPriority, THREAD_PRIORITY_TIME_CRITICAL): a call that it comes to too late is lost, after 300 ms unless
/// the user's LowLevelHooksTimeout says otherwise, and the system may end the watch without a word.
Status WatchKeyboard(const std::function<void(std::uint32_t virtualKey)>& onKey);
template <>
inline constexpr WaitingMark kWaiting<&WatchKeyboard>{Waiting::Loop};

enum class MouseEvent { Move, LeftDown, LeftUp };

/// Watches the mouse for all programs (SetWindowsHookExW with WH_MOUSE_LL, else as WatchKeyboard); other buttons and
/// the wheel are left out. `pointer` is where the pointer is going to be (MSLLHOOKSTRUCT.pt); CursorPosition still
/// tells where it was. `onMouse` holds up the pointer and must return within microseconds; the event is always passed
/// on.
Status WatchMouse(const std::function<void(MouseEvent event, Point pointer)>& onMouse);
template <>
inline constexpr WaitingMark kWaiting<&WatchMouse>{Waiting::Loop};

enum class InputHook { Keyboard, Mouse };

/// Has the thread that watches keyboard or mouse hook again (PostThreadMessageW): the new hook is in place before the
/// old one is released, and when there can be no new one, the old one stays. Any thread; returns at once, false while
/// nobody watches.
bool HookAgain(InputHook hook);

/// What happened to a window (the EVENT_ values).
enum class WindowEvent : std::uint32_t {
  Foreground = 0x0003,      // EVENT_SYSTEM_FOREGROUND
  MoveSizeStart = 0x000A,   // EVENT_SYSTEM_MOVESIZESTART
  MoveSizeEnd = 0x000B,     // EVENT_SYSTEM_MOVESIZEEND
  DesktopSwitch = 0x0020,   // EVENT_SYSTEM_DESKTOPSWITCH, of no window
  LocationChange = 0x800B,  // EVENT_OBJECT_LOCATIONCHANGE
};

/// What of a window it happened to (the OBJID_ values).
inline constexpr std::int32_t kObjectWindow = 0, kObjectCaret = -8, kObjectCursor = -9;

/// The events from the first to the last; between the two there may be some without a name above.
struct WindowEventRange {
  WindowEvent first, last;
};

/// Watches the windows of all other processes for the events of each range (a SetWinEventHook with
/// WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS for each, GetMessageW, TranslateMessage, DispatchMessageW,
/// UnhookWinEvent). The events come one after the other, some time after they happened: nobody waits for `onEvent`.
Status WatchWindowEvents(
    const std::vector<WindowEventRange>& ranges,
    const std::function<void(WindowEvent event, WindowHandle window, std::int32_t object)>& onEvent);
template <>
inline constexpr WaitingMark kWaiting<&WatchWindowEvents>{Waiting::Loop};

}  // namespace os
