#include "os/service_window.h"

#include <windows.h>

#include <shellscalingapi.h>
#include <wtsapi32.h>

#include <array>

#include "os/win32/power_settings.h"
#include "os/win32/win32_support.h"
#include "os/win32/window_procedure.h"

namespace os {
namespace {

HINSTANCE OwnInstance() {
  return GetModuleHandleW(nullptr);
}

HICON LoadOwnIcon(std::uint16_t id, int widthMetric, int heightMetric) {
  return static_cast<HICON>(LoadImageW(OwnInstance(), MAKEINTRESOURCEW(id), IMAGE_ICON, GetSystemMetrics(widthMetric),
                                       GetSystemMetrics(heightMetric), LR_DEFAULTCOLOR));
}

/// Any button ends the dialog, and so does closing it.
INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM /*lParam*/) noexcept {
  if (message == WM_INITDIALOG) return TRUE;
  if (message != WM_COMMAND) return FALSE;
  EndDialog(dialog, LOWORD(wParam));
  return TRUE;
}

}  // namespace

std::wstring LoadResourceText(std::uint16_t id) {
  std::array<wchar_t, 100> text{};
  LoadStringW(OwnInstance(), id, text.data(), static_cast<int>(text.size()));
  return win32::TextOf(text);
}

Status RegisterServiceWindowClass(const WindowClass& windowClass, const ServiceWindowEvents& events) {
  win32::DeliverTo(events);
  WNDCLASSEXW native{};
  native.cbSize = sizeof native;
  native.style = CS_HREDRAW | CS_VREDRAW;
  native.lpfnWndProc = win32::ServiceWindowProcedure;
  native.hInstance = OwnInstance();
  native.hIcon = LoadOwnIcon(windowClass.largeIcon, SM_CXICON, SM_CYICON);
  native.hIconSm = LoadOwnIcon(windowClass.smallIcon, SM_CXSMICON, SM_CYSMICON);
  native.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  native.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_WINDOW + 1));
  native.lpszMenuName = MAKEINTRESOURCEW(windowClass.menu);
  native.lpszClassName = windowClass.name.c_str();
  return win32::DoneOrLastError(RegisterClassExW(&native));
}

Result<WindowHandle> CreateServiceWindow(const std::wstring& className, const std::wstring& title) {
  return win32::ToDoorOrLastError<WindowHandle>(
      CreateWindowExW(0, className.c_str(), title.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                      CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr, OwnInstance(), nullptr));
}

Status BecomePerMonitorDpiAware() {
  return win32::DoneOrHresult(SetProcessDpiAwareness(PROCESS_PER_MONITOR_DPI_AWARE));
}

void RefreshWindow(WindowHandle window) {
  UpdateWindow(win32::NativeOf(window));
}

Status AllowMessage(WindowHandle window, std::uint32_t message) {
  return win32::DoneOrLastError(ChangeWindowMessageFilterEx(win32::NativeOf(window), message, MSGFLT_ALLOW, nullptr));
}

void StartTimer(WindowHandle window, std::uint64_t id, std::uint32_t periodMs) {
  SetTimer(win32::NativeOf(window), id, periodMs, nullptr);
}

void StopTimer(WindowHandle window, std::uint64_t id) {
  KillTimer(win32::NativeOf(window), id);
}

Result<PowerNotification> RegisterPowerSetting(WindowHandle window, PowerSetting setting) {
  return win32::ToDoorOrLastError<PowerNotification>(RegisterPowerSettingNotification(
      win32::ToNative<HANDLE>(window), &win32::GuidOf(setting), DEVICE_NOTIFY_WINDOW_HANDLE));
}

void UnregisterPowerSetting(PowerNotification notification) {
  UnregisterPowerSettingNotification(win32::ToNative<HPOWERNOTIFY>(notification));
}

Status RegisterSessionEvents(WindowHandle window) {
  return win32::DoneOrLastError(WTSRegisterSessionNotification(win32::NativeOf(window), NOTIFY_FOR_THIS_SESSION));
}

void UnregisterSessionEvents(WindowHandle window) {
  WTSUnRegisterSessionNotification(win32::NativeOf(window));
}

int RunMessageLoop(WindowHandle window, std::uint16_t accelerators) {
  const HACCEL table = LoadAcceleratorsW(OwnInstance(), MAKEINTRESOURCEW(accelerators));
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (TranslateAcceleratorW(win32::NativeOf(window), table, &message) != 0) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

void QuitMessageLoop(int code) {
  PostQuitMessage(code);
}

void DestroyServiceWindow(WindowHandle window) {
  DestroyWindow(win32::NativeOf(window));
}

void ShowDialog(WindowHandle owner, std::uint16_t id) {
  DialogBoxParamW(OwnInstance(), MAKEINTRESOURCEW(id), win32::NativeOf(owner), DialogProcedure, 0);
}

}  // namespace os
