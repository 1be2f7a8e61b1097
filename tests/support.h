#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include "sim/laptop.h"
#include "tests/door.h"

// What several tests ask of a laptop.
namespace support {

// What most stories speak of, by its plain name.
using os::Bytes, os::Topology;
using sim::Firmware, sim::KernelObjects, sim::Laptop, sim::Power, sim::Registry, sim::Screen, sim::Sessions,
    sim::Window;
using Texts = std::vector<std::wstring>;
using Words = std::vector<std::uint32_t>;  // as the firmware's registers take them

/// The words of a text.
inline Texts WordsOf(const wchar_t* text) {
  std::wistringstream stream(text);
  return {std::istream_iterator<std::wstring, wchar_t>(stream), {}};
}

/// Whether the log holds these lines, whole and in this order; others may stand between them.
inline testing::AssertionResult LogsInOrder(const Laptop& laptop, const std::vector<const wchar_t*>& lines) {
  std::size_t from = 0;
  for (const auto* line : lines) {
    const auto at = laptop.trace.IndexOf(line, from);
    if (!at) return testing::AssertionFailure() << "not in the log at its place: " << testing::PrintToString(line);
    from = *at + 1;
  }
  return testing::AssertionSuccess();
}

/// Whether a debugger was told a text.
inline bool ToldDebuggers(const Laptop& laptop, const std::wstring& text) {
  return std::ranges::count(laptop.trace.DebugTexts(), text) > 0;
}

/// How often the UI was told a text.
inline std::ptrdiff_t TimesTold(const Laptop& laptop, const std::wstring& text) {
  return std::ranges::count(laptop.ui.Received(), text);
}

/// The last text the UI was told; empty when there was none.
inline std::wstring LastTold(const Laptop& laptop) {
  const auto received = laptop.ui.Received();
  return received.empty() ? std::wstring() : received.back();
}

/// Whether the UI was last told that the panel is on or off: "POWERON", "POWEROFF", or empty when neither.
inline std::wstring LastPowerTold(const Laptop& laptop) {
  const auto received = laptop.ui.Received();
  const auto isPower = [](const std::wstring& text) { return text == L"POWERON" || text == L"POWEROFF"; };
  const auto last = std::find_if(received.rbegin(), received.rend(), isPower);
  return last == received.rend() ? std::wstring() : *last;
}

/// From here on only what is new counts: log, firmware requests, texts to the UI, changes of the displays.
inline void ForgetTheStory(Laptop& laptop) {
  laptop.trace.Clear();
  laptop.firmware.ForgetRequests();
  laptop.ui.ForgetReceived();
  laptop.displays.ForgetChanges();
}

/// A laptop on which start-up is over; all that its log, its UI and its devices hold came after.
class RunningLaptop : public Laptop {
 public:
  explicit RunningLaptop(const sim::LaptopOptions& options = {}) : Laptop(options) {
    Boot();
    ForgetTheStory(*this);
  }
};

inline constexpr os::Rect kBPanel{0, 0, 1920, 1080}, kCPanel{0, 1080, 1920, 1595}, kOnCPanel{300, 1120, 1100, 1500};
inline constexpr os::Rect kAnywhere{200, 100, 1200, 800};   // where a window opens on the B panel
inline constexpr std::uint32_t kFramedStyle = 0x00CF'0000;  // a window with all that it can have
inline constexpr std::uint32_t kDialogStyle = 0x00C8'0000;  // caption and system menu, but no box
inline constexpr std::uint32_t kNoMaximizeStyle = 0x00CA'0000;
inline constexpr auto kFrameClass = L"ApplicationFrameWindow", kCoreClass = L"Windows.UI.Core.CoreWindow";
inline constexpr auto kUiProgram = L"C:\\Program Files\\WindowsApps\\7C31A0D4.TessaviewMaster\\NorvTessaview.exe";

/// A running laptop with both panels on, and a UI that said it is ready.
class LaptopInUse : public RunningLaptop {
 public:
  explicit LaptopInUse(int machineGeneration = 2)
      : RunningLaptop({.saved = L"On", .generation = machineGeneration, .uiRunning = true}) {
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

/// The bytes of a literal, without the NUL that ends it: BytesOf("\x02\0text\0").
template <std::size_t size>
os::Bytes BytesOf(const char (&literal)[size]) {
  return os::Bytes(literal, literal + size - 1);
}

}  // namespace support
