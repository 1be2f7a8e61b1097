#include "windows/c_panel_apps.h"

#include <algorithm>
#include <string>

#include "os/desktop.h"
#include "windows/companion_apps.h"
#include "windows/patient_calls.h"
#include "windows/window_classes.h"
#include "windows/window_panel.h"

namespace tessaview {
namespace {

using os::ShowCommand;

/// What is asked of a window again and again.
struct Candidate {
  os::WindowHandle window;
  std::wstring className = os::WindowClassName(window);
  std::wstring title = os::WindowTitle(window);
  std::uint32_t style = os::WindowStyle(window);

  [[nodiscard]] bool Has(std::uint32_t styleBits) const { return (style & styleBits) != 0; }
  [[nodiscard]] bool IsFrame() const { return className == kFrameClass; }
  [[nodiscard]] bool HasCoreWindow() const {
    return os::FindChildWindow(window, kCoreWindowClass) != os::WindowHandle::None;
  }
};

/// Whether a window is one that the user sees on the C panel and that belongs to an application.
bool IsAppOnCPanel(const Candidate& candidate) {
  const auto& [window, className, title, style] = candidate;
  if (IsUiWindow(window, className) || IsShellWindow(window, className) || IsEdgeClass(className)) return false;
  return os::IsWindowVisible(window) && !os::IsWindowMinimized(window) && IsOnCPanel(window);
}

void SendHome(const Candidate& candidate) {
  if (candidate.Has(os::kWsPopup) && !candidate.IsFrame()) return Show(candidate.window, ShowCommand::ShowMinimized);
  if (candidate.IsFrame() && (candidate.title.empty() || !candidate.HasCoreWindow())) return;
  if (IsCompanionTitle(candidate.title)) return Show(candidate.window, ShowCommand::Hide);
  if (candidate.Has(os::kWsMinimizeBox)) Show(candidate.window, ShowCommand::ShowMinimized);
}

bool MayBeMovedUp(const Candidate& candidate) {
  if (IsCompanionTitle(candidate.title) || !IsAppOnCPanel(candidate)) return false;
  return candidate.IsFrame() ? candidate.HasCoreWindow() : candidate.Has(os::kWsMinimizeBox | os::kWsMaximizeBox);
}

}  // namespace

void MinimizeAppsOnCPanel() {
  for (const auto window : os::TopWindows()) {
    const Candidate candidate{window};
    if (IsAppOnCPanel(candidate)) SendHome(candidate);
  }
}

os::WindowHandle TopAppOnCPanel() {
  const auto windows = os::TopWindows();
  const auto found = std::find_if(windows.begin(), windows.end(),
                                  [](os::WindowHandle window) { return MayBeMovedUp(Candidate{window}); });
  return found == windows.end() ? os::WindowHandle::None : *found;
}

}  // namespace tessaview
