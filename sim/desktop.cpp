#include "sim/desktop.h"

#include <algorithm>
#include <utility>

#include "sim/text.h"

namespace sim {

using os::WindowHandle;

namespace {

constexpr auto kExplorer = L"C:\\Windows\\explorer.exe";

os::Rect AtEdge(os::Rect area, Edge edge, std::int32_t thickness) {
  if (edge == Edge::Left) area.right = area.left + thickness;
  if (edge == Edge::Top) area.bottom = area.top + thickness;
  if (edge == Edge::Right) area.left = area.right - thickness;
  if (edge == Edge::Bottom) area.top = area.bottom - thickness;
  return area;
}

}  // namespace

// ---- Opening and closing ----

Desktop::Desktop(Scheduler& scheduler, const FileSystem& files, const Displays& displays, Processes& processes,
                 WindowEvents& events)
    : scheduler_(scheduler), files_(files), displays_(displays), processes_(processes), events_(events) {
  processes_.WhenOneEnds([this](std::uint32_t processId) {
    const auto isIts = [processId](const Window& each) { return each.processId == processId; };
    std::uint32_t lingerMs = 0;
    for (auto& each : windows_) {
      if (!isIts(each) || each.lingersMs == 0) continue;
      each.responsive = false;
      lingerMs = std::max(lingerMs, each.lingersMs);
    }
    if (lingerMs == 0) return CloseWhere(isIts);
    scheduler_.After(lingerMs, [this, isIts] { CloseWhere(isIts); });
  });
  Open({.className = L"HCONTROL",
        .title = L"HControl",
        .program = L"C:\\Windows\\System32\\HControl.exe",
        .visible = false});
  shell_ = OpenInForeground({.className = L"Progman",
                             .title = L"Program Manager",
                             .program = kExplorer,
                             .area = {0, 0, 1920, 1595},
                             .style = 0});
}

WindowHandle Desktop::Open(Window window) {
  lastHandle_ += 2;
  window.handle = static_cast<WindowHandle>(lastHandle_);
  if (window.processId == 0) {
    window.processId = processes_.IdOf(window.program);
    if (window.processId == 0) window.processId = processes_.Run(window.program);
  }
  const auto handle = window.handle;
  windows_.insert(windows_.begin(), std::move(window));
  auto& opened = windows_.front();
  if ((opened.style & os::kWsMaximize) != 0) Enter(opened, ShowState::Maximized);
  if ((opened.style & os::kWsMinimize) != 0) Enter(opened, ShowState::Minimized);
  BringToTop(handle);
  return handle;
}

WindowHandle Desktop::OpenInForeground(Window window) {
  const auto handle = Open(std::move(window));
  SetForeground(handle);
  return handle;
}

WindowHandle Desktop::OpenTaskbar(const Screen& screen, Edge edge, std::int32_t thickness) {
  return Open({.className = screen.IsPrimary() ? L"Shell_TrayWnd" : L"Shell_SecondaryTrayWnd",
               .program = kExplorer,
               .area = AtEdge(screen.Area(), edge, thickness),
               .style = os::kWsPopup,
               .extendedStyle = 0x88});  // WS_EX_TOOLWINDOW | WS_EX_TOPMOST
}

void Desktop::Close(WindowHandle window) {
  if (window == WindowHandle::None) return;
  CloseWhere([window](const Window& each) { return each.parent == window || each.owner == window; });
  std::erase_if(windows_, [window](const Window& each) { return each.handle == window; });
  if (shell_ == window) shell_ = WindowHandle::None;
  if (foreground_ == window) PassOnForeground();
}

void Desktop::CloseAll(const std::wstring& className) {
  for (auto window = Find(className); window != WindowHandle::None; window = Find(className)) Close(window);
}

void Desktop::CloseWhere(const Concerned& concerned) {
  for (auto each = std::find_if(windows_.begin(), windows_.end(), concerned); each != windows_.end();
       each = std::find_if(windows_.begin(), windows_.end(), concerned)) {
    Close(WindowHandle(each->handle));
  }
}

// ---- The order of the windows and the user ----

void Desktop::BringToTop(WindowHandle window) {
  const auto found =
      std::find_if(windows_.begin(), windows_.end(), [window](const Window& each) { return each.handle == window; });
  if (found == windows_.end()) return;
  std::rotate(windows_.begin(), found, found + 1);
  std::stable_partition(windows_.begin(), windows_.end(), [](const Window& each) { return each.IsTopmost(); });
  // The shell's window lies behind all others, also when the user works with it.
  std::stable_partition(windows_.begin(), windows_.end(), [this](const Window& each) { return each.handle != shell_; });
}

void Desktop::SetForeground(WindowHandle window) {
  BringToTop(window);
  if (std::exchange(foreground_, window) == window || window == WindowHandle::None) return;
  Raise(os::WindowEvent::Foreground, window);
}

void Desktop::PassOnForeground() {
  const auto next = std::find_if(windows_.begin(), windows_.end(),
                                 [this](const Window& each) { return each.TakesOver() && each.handle != foreground_; });
  SetForeground(next == windows_.end() ? WindowHandle::None : next->handle);
}

int Desktop::Raise(os::WindowEvent event, WindowHandle window, std::int32_t object) {
  const auto* of = Find(window);
  if (of != nullptr && Lower(of->program) == Lower(files_.ownProgram)) return 0;
  return events_.Raise(event, window, object);
}

void Desktop::SetTopmost(WindowHandle window, bool topmost) {
  auto* changed = Find(window);
  if (changed == nullptr) return;
  constexpr std::uint32_t kTopmost = 0x8;  // WS_EX_TOPMOST
  changed->extendedStyle = (changed->extendedStyle & ~kTopmost) | (topmost ? kTopmost : 0);
  BringToTop(window);
}

void Desktop::Door::Note(WindowHandle window, std::wstring entry) {
  journals_[window].push_back(std::move(entry));
}

std::vector<std::wstring> Desktop::Journal(WindowHandle window) const {
  const auto found = journals_.find(window);
  return found == journals_.end() ? std::vector<std::wstring>() : found->second;
}

}  // namespace sim
