// Power. Wine tells the source of the machine the lab runs on, and takes registrations for power settings without ever
// telling anything: here both are the laptop's, and a registration hears the current value first, as on Windows. What
// changes later the test tells by itself.
#include <windows.h>

#include <array>

#include "kit/controller.h"
#include "kit/laptop_state.h"
#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

BOOL WINAPI LaptopPowerStatus(LPSYSTEM_POWER_STATUS status) {
  constexpr BYTE kHalfFull = 50;
  const LaptopState& laptop = *SharedLaptopState();
  // By position: what the fourth field, battery saver, is called depends on the age of the headers.
  *status = {static_cast<BYTE>(laptop.onMains),      0,        kHalfFull,
             static_cast<BYTE>(laptop.batterySaver), MAXDWORD, MAXDWORD};
  return TRUE;
}

/// A setting's value as the system broadcasts it. It must lie where it is until the message is served.
struct Notice {
  GUID setting;
  DWORD length = sizeof(DWORD);
  DWORD value;
};

DWORD ValueOf(const GUID& setting) {
  constexpr DWORD kDisplayOn = 1, kLidOpen = 1, kSleeps = 1;
  const LaptopState& laptop = *SharedLaptopState();
  if (setting == kConsoleDisplayState) return kDisplayOn;
  if (setting == kLidSwitchState) return kLidOpen;
  if (setting == kPowerSavingStatus) return laptop.batterySaver;
  if (setting == kAcDcPowerSource) return laptop.onMains == 1 ? 0 : 1;
  return kSleeps;  // what closing the lid does
}

/// One registration for each setting, for the life of the process.
std::array<Notice, 5> notices;
std::size_t registered = 0;

HPOWERNOTIFY WINAPI RegisterAndTell(HANDLE recipient, LPCGUID setting, DWORD flags) {
  if (flags != DEVICE_NOTIFY_WINDOW_HANDLE || registered == notices.size()) return nullptr;
  Notice& notice = notices[registered++];
  notice.setting = *setting;
  notice.value = ValueOf(*setting);
  PostMessageW(static_cast<HWND>(recipient), WM_POWERBROADCAST, PBT_POWERSETTINGCHANGE,
               reinterpret_cast<LPARAM>(&notice));
  return reinterpret_cast<HPOWERNOTIFY>(&notice);
}

BOOL WINAPI Unregister(HPOWERNOTIFY handle) {
  const bool known = handle >= static_cast<void*>(notices.data()) && handle <= static_cast<void*>(&notices.back());
  Report(known ? L"patch power setting unregistered" : L"patch unknown power setting unregistered");
  return known;
}

}  // namespace

std::array<Redirection, 3> PowerCalls() {
  return {{{"GetSystemPowerStatus", reinterpret_cast<void*>(LaptopPowerStatus)},
           {"RegisterPowerSettingNotification", reinterpret_cast<void*>(RegisterAndTell)},
           {"UnregisterPowerSettingNotification", reinterpret_cast<void*>(Unregister)}}};
}

}  // namespace lab::patch
