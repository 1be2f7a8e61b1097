#pragma once

#include <string>

#include "os/types.h"
#include "tests/support.h"

// What the tests of windows on two panels share.
namespace support {

inline constexpr os::Rect kBPanel{0, 0, 1920, 1080}, kCPanel{0, 1080, 1920, 1595}, kOnCPanel{300, 1120, 1100, 1500};
inline constexpr std::uint32_t kDialogStyle = 0x00C8'0000;  // caption and system menu, but no box
inline constexpr std::uint32_t kNoMaximizeStyle = 0x00CA'0000;
inline constexpr auto kFrameClass = L"ApplicationFrameWindow", kCoreClass = L"Windows.UI.Core.CoreWindow";

/// A running laptop with both panels on, and a UI that said it is ready.
class TwoPanels : public RunningLaptop {
 public:
  TwoPanels() : RunningLaptop({.saved = L"On", .uiRunning = true}) {
    ui.Send(L"ALIVE");
    ForgetTheStory(*this);
  }

  /// The frame of a packaged application; with `core` its own window stands inside.
  os::WindowHandle OpenFrame(const std::wstring& title, const os::Rect& area, bool core = true,
                             const std::wstring& program = L"C:\\Program Files\\WindowsApps\\App\\App.exe") {
    const auto frame = desktop.Open({.className = kFrameClass,
                                     .title = title,
                                     .program = L"C:\\Windows\\System32\\ApplicationFrameHost.exe",
                                     .area = area});
    if (core) desktop.Open({.className = kCoreClass, .program = program, .area = area, .parent = frame});
    return frame;
  }

  [[nodiscard]] os::Rect Area(os::WindowHandle of) const { return desktop.Find(of)->area; }
};

}  // namespace support
