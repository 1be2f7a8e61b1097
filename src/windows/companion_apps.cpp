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

}  // namespace

bool IsCompanionTitle(std::wstring_view title) {
  return std::find(std::begin(kTitles), std::end(kTitles), title) != std::end(kTitles);
}

void MoveCompanionsToCPanel() {
  for (const auto window : os::TopWindows()) {
    if (IsCompanionTitle(os::WindowTitle(window)) && os::IsWindowVisible(window)) {
      MoveWindowtoCPanel(window, Pause::Short);
    }
  }
}

}  // namespace tessaview
