#include "sim/desktop.h"

#include <algorithm>
#include <utility>

#include "sim/laptop.h"
#include "sim/text.h"

namespace sim {

using os::WindowHandle;

void Desktop::StartShell() {
  Open({.className = L"HCONTROL",
        .title = L"HControl",
        .program = L"C:\\Windows\\System32\\HControl.exe",
        .visible = false});
  shell_ = OpenInForeground({.className = L"Progman",
                             .title = L"Program Manager",
                             .program = L"C:\\Windows\\explorer.exe",
                             .area = {0, 0, 1920, 1595},
                             .style = 0});
}

WindowHandle Desktop::Open(Window window) {
  lastHandle_ += 2;
  window.handle = static_cast<WindowHandle>(lastHandle_);
  if (window.processId == 0) {
    auto& processes = Machine().processes;
    window.processId = processes.IdOf(window.program);
    if (window.processId == 0) window.processId = processes.Run(window.program);
  }
  windows_.insert(windows_.begin(), std::move(window));
  return windows_.front().handle;
}

WindowHandle Desktop::OpenInForeground(Window window) {
  const auto handle = Open(std::move(window));
  SetForeground(handle);
  return handle;
}

void Desktop::Close(WindowHandle window) {
  if (window == WindowHandle::None) return;
  std::erase_if(windows_, [window](const Window& each) { return each.handle == window; });
  if (foreground_ != window) return;
  const auto next = std::find_if(windows_.begin(), windows_.end(), [](const Window& each) { return each.visible; });
  foreground_ = next == windows_.end() ? WindowHandle::None : next->handle;
}

void Desktop::CloseAll(const std::wstring& className) {
  for (auto window = Find(className); window != WindowHandle::None; window = Find(className)) Close(window);
}

void Desktop::SetForeground(WindowHandle window) {
  foreground_ = window;
  const auto found =
      std::find_if(windows_.begin(), windows_.end(), [window](const Window& each) { return each.handle == window; });
  if (found != windows_.end()) std::rotate(windows_.begin(), found, found + 1);
}

Window* Desktop::Find(WindowHandle window) {
  const auto found =
      std::find_if(windows_.begin(), windows_.end(), [window](const Window& each) { return each.handle == window; });
  return found == windows_.end() ? nullptr : &*found;
}

WindowHandle Desktop::Find(const std::wstring& className, const wchar_t* title) const {
  for (const auto& window : windows_) {
    if (Lower(window.className) != Lower(className)) continue;
    if (title == nullptr || Lower(window.title) == Lower(title)) return window.handle;
  }
  return WindowHandle::None;
}

bool Desktop::DeliverCopyData(WindowHandle window, std::uint64_t kind, os::BytesView record,
                              std::optional<std::uint64_t> deadlineMs) {
  const auto canAnswer = [this, window] {
    const auto* target = Find(window);
    return target == nullptr || (target->responsive && target->busyUntilMs <= Machine().NowMs());
  };
  if (!Machine().scheduler.WaitUntil(canAnswer, deadlineMs)) return false;
  const auto* target = Find(window);
  if (target == nullptr) return false;
  if (const auto take = target->copyData) take(kind, record);
  return true;
}

}  // namespace sim
