#include "windows/companion_apps.h"

#include <algorithm>
#include <iterator>

#include "os/desktop.h"
#include "windows/panel_moves.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kTitles[] = {
    L"NORV Digit Keys", L"NORV Pen Input", L"NORV Fast Keys",  //
    L"NORV Page Aide",  L"NORV Grid Aide", L"NORV Deck Aide",
};

/// The topmost one; None when there is none.
os::WindowHandle VisibleWindowTitled(const wchar_t* title) {
  const auto windows = os::TopWindows();
  const auto found = std::find_if(windows.begin(), windows.end(), [title](os::WindowHandle window) {
    return os::WindowTitle(window) == title && os::IsWindowVisible(window);
  });
  return found == windows.end() ? os::WindowHandle::None : *found;
}

}  // namespace

bool IsCompanionTitle(std::wstring_view title) {
  return std::find(std::begin(kTitles), std::end(kTitles), title) != std::end(kTitles);
}

void MoveCompanionsToCPanel() {
  for (const auto* const title : kTitles) {
    const auto window = VisibleWindowTitled(title);
    if (window != os::WindowHandle::None) MoveWindowtoCPanel(window, Pause::Short);
  }
}

}  // namespace tessaview
