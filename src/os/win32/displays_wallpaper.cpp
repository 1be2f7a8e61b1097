// The monitors as the desktop-wallpaper object counts them.
#include <windows.h>

#include <shobjidl.h>

#include "os/displays.h"
#include "os/win32/com_pointer.h"
#include "os/win32/win32_support.h"

namespace os {
namespace {

struct TaskMemoryFreer {
  void operator()(void* memory) const noexcept { CoTaskMemFree(memory); }
};
using TaskText = std::unique_ptr<wchar_t, TaskMemoryFreer>;

using Wallpaper = win32::ComPointer<IDesktopWallpaper>;

/// Joins the thread to COM while it lives. A thread that has joined in another way is served as well.
class ComScope {
 public:
  ComScope() : joined_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;
  ~ComScope() {
    if (joined_) CoUninitialize();
  }

 private:
  const bool joined_;
};

Wallpaper CreateWallpaper() {
  void* object = nullptr;
  if (FAILED(CoCreateInstance(CLSID_DesktopWallpaper, nullptr, CLSCTX_ALL, IID_IDesktopWallpaper, &object))) return {};
  return Wallpaper(static_cast<IDesktopWallpaper*>(object));
}

std::wstring MonitorPathAt(IDesktopWallpaper& wallpaper, UINT index) {
  wchar_t* path = nullptr;
  wallpaper.GetMonitorDevicePathAt(index, &path);
  const TaskText owned(path);
  return path == nullptr ? std::wstring() : std::wstring(path);
}

}  // namespace

std::optional<std::vector<std::wstring>> WallpaperMonitorPaths() {
  const ComScope com;
  const Wallpaper wallpaper = CreateWallpaper();
  if (!wallpaper) return {};

  UINT count = 0;
  if (FAILED(wallpaper->GetMonitorDevicePathCount(&count))) return {};
  std::vector<std::wstring> paths;
  for (UINT index = 0; index < count; ++index) paths.push_back(MonitorPathAt(*wallpaper, index));
  return paths;
}

}  // namespace os
