#include "appid/microsoft_apps.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <vector>

#include "appid/app_identity.h"
#include "core/text.h"
#include "core/trace_log.h"
#include "core/user_rights.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "os/processes.h"
#include "windows/window_classes.h"

namespace tessaview {
namespace {

constexpr std::wstring_view kAllowed[] = {L"WINDOWSCALCULATOR",    L"WINDOWSALARMS",
                                          L"BINGWEATHER",          L"ZUNEVIDEO",
                                          L"WINDOWSSOUNDRECORDER", L"MICROSOFTSOLITAIRECOLLECTION"};
constexpr std::wstring_view kRefused = L"MICROSOFT";

constexpr int kMostSearches = 50;
constexpr std::uint32_t kSearchPauseMs = 2;  // a frame is there before the application is

bool Contains(std::wstring_view text, std::wstring_view part) {
  return text.find(part) != std::wstring_view::npos;
}

os::WindowHandle AwaitCoreWindow(os::WindowHandle frame) {
  auto child = os::FindChildWindow(frame, kCoreWindowClass);
  for (int searches = 1; child == os::WindowHandle::None && searches < kMostSearches; ++searches) {
    os::Sleep(kSearchPauseMs);
    child = os::FindChildWindow(frame, kCoreWindowClass);
  }
  return child;
}

/// As the user: the file is any program's, and may lie on a share that would learn who reads it.
std::vector<std::wstring> ProductNamesAsUser(const std::wstring& path) {
  const ActingAsUser user;
  return user.IsRefused() ? std::vector<std::wstring>() : os::ProductNames(path);
}

/// A package is known by its family, a desktop program by the product that its file says it belongs to.
std::wstring NameToTest(const AppIdentity& identity) {
  if (!identity.appUserModelId.empty()) return identity.packageFamilyName;
  const auto names = ProductNamesAsUser(identity.executablePath);
  return names.empty() ? std::wstring() : names.back();
}

bool IsMicrosofts(const AppIdentity& identity) {
  if (!CheckIsMicrosoftApp(NameToTest(identity))) return false;
  Log(L"[IsMSApp] is Microsoft App, then return pin fail");
  return true;
}

}  // namespace

bool CheckIsMicrosoftApp(const std::wstring& name) {
  const auto upper = UpperCased(name);
  if (std::any_of(std::begin(kAllowed), std::end(kAllowed), [&](auto allowed) { return Contains(upper, allowed); })) {
    Log(L"[CheckIsMicrosoftApp] Is MicroSoft White List App = %ls \n", name);
    return false;
  }
  if (Contains(upper, kRefused)) {
    Log(L"[CheckIsMicrosoftApp] Is MicroSoft App = %ls \n", name);
    return true;
  }
  Log(L"[CheckIsMicrosoftApp] Is Not MicroSoft App = %ls \n", name);
  return false;
}

bool IsMSApp(os::WindowHandle window) {
  const bool isFrame = os::WindowClassName(window) == kFrameClass;
  const auto child = isFrame ? AwaitCoreWindow(window) : os::FindChildWindow(window, kCoreWindowClass);
  if (isFrame && child == os::WindowHandle::None) {
    Log(L"[IsMSApp] UWP always found ApplicationFrameWindow");
    return true;
  }
  const auto identity = GetExePathandAUMIDbyHWND(child == os::WindowHandle::None ? window : child);
  if (identity.executablePath.empty()) {
    Log(L"[IsMSApp] Admin Win32 can not pin");
    return true;
  }
  return IsMicrosofts(identity);
}

}  // namespace tessaview
