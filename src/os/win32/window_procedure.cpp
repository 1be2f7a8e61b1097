#include "os/win32/window_procedure.h"

#include <array>
#include <cstring>

#include "os/win32/power_settings.h"
#include "os/win32/raw_input_record.h"
#include "os/win32/win32_support.h"

namespace os::win32 {
namespace {

const ServiceWindowEvents* gEvents = nullptr;

void OnCopyData(WPARAM kind, const COPYDATASTRUCT* data) {
  if (data == nullptr || data->lpData == nullptr) return gEvents->copyData(kind, {});
  gEvents->copyData(kind, {static_cast<const std::uint8_t*>(data->lpData), data->cbData});
}

void OnRawInput(HRAWINPUT handle) {
  RawInputBuffer buffer;
  gEvents->rawInput(ReadRawInput(handle, buffer));
}

/// A setting whose data is no DWORD, or that nobody asked for, is let go.
void OnPowerSetting(const POWERBROADCAST_SETTING* changed) {
  std::uint32_t value = 0;
  if (changed == nullptr || changed->DataLength < sizeof value) return;
  const auto setting = PowerSettingOf(changed->PowerSetting);
  if (!setting) return;
  std::memcpy(&value, changed->Data, sizeof value);
  gEvents->powerSetting(*setting, value);
}

void OnPowerBroadcast(WPARAM event, LPARAM data) {
  if (event == PBT_POWERSETTINGCHANGE) return OnPowerSetting(reinterpret_cast<const POWERBROADCAST_SETTING*>(data));
  gEvents->powerBroadcast(static_cast<std::uint32_t>(event));
}

/// A registration that failed gives the id 0, which is WM_NULL and no message of ours.
bool IsRegistered(std::uint32_t id, UINT message) {
  return id != 0 && id == message;
}

}  // namespace

void DeliverTo(const ServiceWindowEvents& events) {
  gEvents = &events;
}

LRESULT CALLBACK ServiceWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (IsRegistered(gEvents->hotKeyMessage, message)) {
    gEvents->hotKey(wParam, lParam);
    return 0;
  }
  if (IsRegistered(gEvents->touchPadStatusMessage, message)) {
    gEvents->touchPadStatus(wParam, lParam);
    return 0;
  }

  switch (message) {
    case WM_DISPLAYCHANGE:
      gEvents->displayChange();
      return 0;
    case kNotedMessage:
      gEvents->noted();
      return 0;
    case WM_DESTROY:
      gEvents->destroy();
      return 0;
    case WM_PAINT:
      ValidateRect(window, nullptr);
      return 0;
    case WM_QUERYENDSESSION:
      gEvents->queryEndSession(static_cast<std::uint32_t>(lParam));
      return 0;  // as for every message handled here, although the system reads it as a refusal
    case WM_ENDSESSION:
      return 0;
    case WM_COPYDATA:
      OnCopyData(wParam, reinterpret_cast<const COPYDATASTRUCT*>(lParam));
      return 0;
    case WM_INPUT:
      OnRawInput(reinterpret_cast<HRAWINPUT>(lParam));
      DefWindowProcW(window, message, wParam, lParam);  // frees the record of input that came to the foreground
      return 0;
    case WM_COMMAND:
      gEvents->command(LOWORD(wParam));
      return 0;
    case WM_TIMER:
      gEvents->timer(wParam);
      return 0;
    case WM_POWERBROADCAST:
      OnPowerBroadcast(wParam, lParam);
      DefWindowProcW(window, message, wParam, lParam);
      return 0;
    case WM_WTSSESSION_CHANGE:
      gEvents->sessionChange(static_cast<std::uint32_t>(wParam));
      return 0;
    default:
      return DefWindowProcW(window, message, wParam, lParam);
  }
}

}  // namespace os::win32
