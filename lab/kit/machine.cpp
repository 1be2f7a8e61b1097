#include "kit/machine.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <utility>

#include "kit/journal.h"

namespace lab {
namespace {

constexpr wchar_t kBDisplay[] = L"\\\\.\\DISPLAY1", kCDisplay[] = L"\\\\.\\DISPLAY2";

bool WriteText(HKEY key, const wchar_t* name, const std::wstring& text) {
  return RegSetValueExW(key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

/// The id that the factory writes for the monitor of a display: "DISPLAY\TSB8888\0001&0000\0", in capitals, where the
/// system tells "\\?\DISPLAY#TSB8888#0001&0000#{…}". Empty when there is no such monitor.
std::wstring FactoryId(const wchar_t* display) {
  constexpr std::size_t kPrefix = 4;
  DISPLAY_DEVICEW monitor{};
  monitor.cb = sizeof monitor;
  if (!EnumDisplayDevicesW(display, 0, &monitor, EDD_GET_DEVICE_INTERFACE_NAME)) return {};
  CharUpperW(monitor.DeviceID);
  const std::wstring path = monitor.DeviceID;
  if (path.size() < kPrefix) return {};
  std::wstring id = path.substr(kPrefix, path.rfind(L'#') - kPrefix) + L"\\0";
  std::replace(id.begin(), id.end(), L'#', L'\\');
  return id;
}

/// A PNG is whole when its last chunk, 12 bytes named IEND, is there.
bool IsWholePng(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::array<char, 8> end{};
  if (!file.seekg(-static_cast<std::streamoff>(end.size()), std::ios::end) || !file.read(end.data(), end.size())) {
    return false;
  }
  return std::string(end.data(), 4) == "IEND";
}

}  // namespace

std::wstring EnvironmentText(const wchar_t* name) {
  std::array<wchar_t, 1024> text{};
  GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size()));
  return text.data();
}

bool WriteFactoryIds() {
  const auto b = FactoryId(kBDisplay), c = FactoryId(kCDisplay);
  if (b.empty() || c.empty()) return false;
  HKEY key = nullptr;
  if (RegCreateKeyExW(HKEY_LOCAL_MACHINE, L"SOFTWARE\\NORV\\FactoryConfig", 0, nullptr, 0, KEY_WRITE, nullptr, &key,
                      nullptr) != ERROR_SUCCESS) {
    return false;
  }
  const bool written = WriteText(key, L"BPanelHardwareID", b) && WriteText(key, L"CPanelHardwareID", c);
  RegCloseKey(key);
  return written;
}

bool ListPackage(const std::wstring& fullName) {
  const std::wstring packages =
      L"SOFTWARE\\Classes\\Local Settings\\Software\\Microsoft\\Windows\\CurrentVersion\\AppModel\\PackageRepository\\"
      L"Packages\\";
  return RegSetKeyValueW(HKEY_LOCAL_MACHINE, (packages + fullName).c_str(), L"Path", REG_SZ, L"", sizeof L"") ==
         ERROR_SUCCESS;
}

std::wstring SettingsPath() {
  return L"C:\\Windows\\system32\\config\\systemprofile\\AppData\\Local\\NORV\\Vantyra\\TessaviewSetting.ini";
}

std::string Setting(const std::string& key) {
  std::ifstream file{std::filesystem::path(SettingsPath()), std::ios::binary};
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.rfind(key + "=", 0) == 0) return line.substr(key.size() + 1);
  }
  return {};
}

std::vector<std::wstring> Monitors() {
  std::vector<std::wstring> monitors;
  const auto add = [](HMONITOR monitor, HDC, LPRECT at, LPARAM list) -> BOOL {
    auto& found = *reinterpret_cast<std::vector<std::wstring>*>(list);
    MONITORINFO info{};
    info.cbSize = sizeof info;
    GetMonitorInfoW(monitor, &info);
    const auto text = std::to_wstring(at->right - at->left) + L"x" + std::to_wstring(at->bottom - at->top) + L" at (" +
                      std::to_wstring(at->left) + L"," + std::to_wstring(at->top) + L")";
    const bool primary = (info.dwFlags & MONITORINFOF_PRIMARY) != 0;
    found.insert(primary ? found.begin() : found.end(), text);
    return TRUE;
  };
  EnumDisplayMonitors(nullptr, nullptr, add, reinterpret_cast<LPARAM>(&monitors));
  return monitors;
}

bool PlaceCPanel(int x, int y, unsigned orientation) {
  DEVMODEW mode{};
  mode.dmSize = sizeof mode;
  // What is stored is the same, and fresh: Wine 8 renews a process's view of the current settings only for its own
  // changes.
  if (!EnumDisplaySettingsW(kCDisplay, ENUM_REGISTRY_SETTINGS, &mode)) return false;
  if ((mode.dmDisplayOrientation + orientation) % 2 == 1) std::swap(mode.dmPelsWidth, mode.dmPelsHeight);
  mode.dmPosition = {x, y};
  mode.dmDisplayOrientation = orientation;
  mode.dmFields = DM_POSITION | DM_DISPLAYORIENTATION | DM_PELSWIDTH | DM_PELSHEIGHT;
  return ChangeDisplaySettingsExW(kCDisplay, &mode, nullptr, CDS_UPDATEREGISTRY | CDS_GLOBAL, nullptr) ==
         DISP_CHANGE_SUCCESSFUL;
}

std::wstring TakePicture(const std::wstring& name) {
  // Drive Z: is the root of the Linux file system; Wine starts a Linux program like any other, but gives no handle to
  // wait for.
  const std::wstring path = EnvironmentText(L"LAB_PICTURES") + L"/" + name + L".png";
  const std::filesystem::path seenFromHere = L"Z:" + path;
  std::error_code ignored;
  std::filesystem::remove(seenFromHere, ignored);
  std::wstring commandLine = L"\"Z:\\usr\\bin\\scrot\" --overwrite --silent \"" + path + L"\"";
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(L"Z:\\usr\\bin\\scrot", commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &startup, &started)) {
    return {};
  }
  return Eventually([&] { return IsWholePng(seenFromHere); }) ? path : std::wstring();
}

}  // namespace lab
