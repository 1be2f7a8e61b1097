#pragma once

#include <cstdint>
#include <string>

#include "os/hid.h"
#include "os/types.h"
#include "os/waiting.h"

namespace os {

/// The power settings the controller listens to (GUID_CONSOLE_DISPLAY_STATE, GUID_LIDSWITCH_STATE_CHANGE,
/// GUID_POWER_SAVING_STATUS, GUID_ACDC_POWER_SOURCE, GUID_LIDCLOSE_ACTION).
enum class PowerSetting { ConsoleDisplayState, LidSwitchState, PowerSavingStatus, AcDcPowerSource, LidCloseAction };

/// The controller posts this message to its own window, to be called from the message loop (WM_APP).
inline constexpr std::uint32_t kNotedMessage = 0x8000;

/// What the service window hands on, decoded from its window messages. Each is called on the thread that runs the
/// message loop; none may be null.
struct ServiceWindowEvents {
  std::uint32_t hotKeyMessage;  // registered ids, see RegisterMessage
  std::uint32_t touchPadStatusMessage;

  void (*hotKey)(std::uint64_t wParam, std::int64_t lParam);
  void (*touchPadStatus)(std::uint64_t wParam, std::int64_t lParam);
  void (*displayChange)();                                          // WM_DISPLAYCHANGE
  void (*copyData)(std::uint64_t kind, BytesView record);           // WM_COPYDATA, `kind` is its wParam
  void (*rawInput)(const RawInput& input);                          // WM_INPUT, record already read
  void (*command)(std::uint16_t id);                                // WM_COMMAND: menu item or accelerator
  void (*timer)(std::uint64_t id);                                  // WM_TIMER
  void (*powerBroadcast)(std::uint32_t event);                      // WM_POWERBROADCAST, PBT_* but settings
  void (*powerSetting)(PowerSetting setting, std::uint32_t value);  // PBT_POWERSETTINGCHANGE, DWORD data
  void (*sessionChange)(std::uint32_t event);                       // WM_WTSSESSION_CHANGE, WTS_*
  void (*queryEndSession)(std::uint32_t reason);                    // WM_QUERYENDSESSION, its lParam (ENDSESSION_*)
  void (*noted)();                                                  // kNotedMessage
  void (*destroy)();                                                // WM_DESTROY
};

/// A string resource, at most 99 characters (LoadStringW); empty when the program has none with this id.
[[nodiscard]] std::wstring LoadResourceText(std::uint16_t id);

struct WindowClass {
  std::wstring name;
  std::uint16_t largeIcon, smallIcon, menu;  // resource ids
};

/// Registers a window class of style CS_HREDRAW | CS_VREDRAW with the arrow cursor and the brush COLOR_WINDOW + 1,
/// whose procedure decodes the window's messages into `events` (RegisterClassExW). Every message of `events` answers 0;
/// power broadcasts go to the default procedure as well, WM_PAINT only validates, WM_ENDSESSION does nothing, all else
/// is left to DefWindowProcW. `events` must outlive the window.
Status RegisterServiceWindowClass(const WindowClass& windowClass, const ServiceWindowEvents& events);

/// Creates the hidden top-level window: WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, no parent, never shown (CreateWindowExW).
/// Its messages arrive on the calling thread: once that runs the message loop, and those that are sent also while it
/// waits for the answer of another window.
[[nodiscard]] Result<WindowHandle> CreateServiceWindow(const std::wstring& className, const std::wstring& title);

/// Makes the process see every monitor's own scale (SetProcessDpiAwareness, PROCESS_PER_MONITOR_DPI_AWARE).
Status BecomePerMonitorDpiAware();

/// Paints the client area if it needs it (UpdateWindow).
void RefreshWindow(WindowHandle window);

/// Lets a message from processes of lower integrity reach the window (ChangeWindowMessageFilterEx, MSGFLT_ALLOW).
Status AllowMessage(WindowHandle window, std::uint32_t message);
inline constexpr std::uint32_t kCopyDataMessage = 0x004A;  // WM_COPYDATA

/// Starts or restarts a timer of the window, period in milliseconds (SetTimer); ends one (KillTimer). Timers with the
/// service window arrive at its `timer` event.
void StartTimer(WindowHandle window, std::uint64_t id, std::uint32_t periodMs);
void StopTimer(WindowHandle window, std::uint64_t id);

/// A registration for one power setting (HPOWERNOTIFY).
enum class PowerNotification : std::uint64_t { None = 0 };

/// Asks for changes of a power setting (RegisterPowerSettingNotification, DEVICE_NOTIFY_WINDOW_HANDLE); the system
/// delivers the current value as the first notification.
[[nodiscard]] Result<PowerNotification> RegisterPowerSetting(WindowHandle window, PowerSetting setting);

/// Ends a registration that was made (UnregisterPowerSettingNotification).
void UnregisterPowerSetting(PowerNotification notification);

/// Asks for lock, unlock and the like of this session (WTSRegisterSessionNotification, NOTIFY_FOR_THIS_SESSION).
Status RegisterSessionEvents(WindowHandle window);
void UnregisterSessionEvents(WindowHandle window);

/// Serves the calling thread's messages, with an accelerator table for the window, until the quit message; returns its
/// code (LoadAcceleratorsW, GetMessageW, TranslateAcceleratorW, TranslateMessage, DispatchMessageW).
int RunMessageLoop(WindowHandle window, std::uint16_t accelerators);
template <>
inline constexpr WaitingMark kWaiting<&RunMessageLoop>{Waiting::Loop};

/// Ends the calling thread's message loop (PostQuitMessage).
void QuitMessageLoop(int code);

/// Destroys a window of the calling thread; its `destroy` event comes before this returns (DestroyWindow).
void DestroyServiceWindow(WindowHandle window);

/// Shows a dialog resource and waits until the user closes it (DialogBoxParamW).
void ShowDialog(WindowHandle owner, std::uint16_t id);
template <>
inline constexpr WaitingMark kWaiting<&ShowDialog>{Waiting::Loop};

}  // namespace os
