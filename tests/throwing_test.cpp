// Whatever happens while windows are thrown between the panels, it comes to rest: from many seeds, windows of every
// kind are dragged and moved by commands while they hang, die or are sized, the UI hangs, the hook of the mouse dies,
// and the C panel goes and comes.

#include <iterator>
#include <map>
#include <memory>
#include <random>

#include "tests/drags.h"
#include "tests/seeds.h"
#include "uilink/commands/command.h"

namespace {

using namespace support;
using os::WindowHandle;

constexpr Seeds kSeeds{"THROWING", 48};  // as many as are quick under the sanitizers
constexpr auto kOffice = L"C:\\Office\\word.exe", kElevated = L"C:\\admin.exe", kPackaged = L"C:\\App\\App.exe";

class Throwing {
 public:
  explicit Throwing(unsigned seed)
      : random_(seed),
        laptop_({.seed = seed,
                 .interleaving = Pick(2) == 0,
                 .turnsUndocumented = seed % 2 == 0,
                 .saved = L"On",
                 .uiRunning = true}) {
    BeUnkind(laptop_, seed);
    laptop_.firmware.panelLeavesWhenOff = true;
    laptop_.Boot();
    laptop_.files.SetProductNames(kOffice, {L"Microsoft Office"});
    laptop_.processes.SetPackage(kPackaged, {L"App!Id", L"App_1", L"App_family", L"C:\\App"});
    laptop_.processes.Protect(laptop_.processes.Run(kElevated));
    laptop_.displays.cPanel().dpi = Pick(2) == 0 ? 96 : 144;
    if (Pick(2) == 0) laptop_.desktop.OpenTaskbar(laptop_.displays.bPanel(), static_cast<sim::Edge>(Pick(4)), 48);
    laptop_.displays.Changed();
    laptop_.ui.Send(L"ALIVE");
    if (Pick(2) == 0) laptop_.ui.Send(L"VERSION=9.9");
    for (int windows = 4; windows > 0; --windows) Open();
  }

  void Play() {
    for (auto events = 8 + Pick(20); events > 0; --events) {
      if (Pick(3) == 0) laptop_.After(Pick(400), [this, what = Pick(7), which = Pick(100)] { Disturb(what, which); });
      OneEvent();
    }
  }

  /// The UI and every window answer again, the panel is back, half a minute passes, and the machine sleeps.
  void ComeToRest() {
    laptop_.Advance(500);
    laptop_.ui.Recover();
    for (const auto& [handle, found] : Opened()) found->responsive = true;
    laptop_.displays.cPanel().Plug();
    laptop_.displays.Changed();
    SwitchPanelOn();
    EXPECT_TRUE(laptop_.Settle());
    laptop_.Advance(30'000);
    laptop_.power.SleepAndWake();  // the mouse's hook is back, and is called
    laptop_.mouse.MoveTo(kAway);
    ExpectWindowsInSight();
    ExpectOverlayGone();
    ExpectService();
  }

 private:
  std::uint32_t Pick(std::size_t choices) { return static_cast<std::uint32_t>(random_() % choices); }
  std::int32_t Between(std::int32_t from, std::int32_t to) {
    return from + static_cast<std::int32_t>(Pick(static_cast<std::size_t>(to - from)));
  }

  // ---- Windows ----

  void Open() {
    const os::Rect place = Pick(2) == 0 ? kAnywhere : kOnCPanel;
    const auto open = [&](Window window) {
      window.area = place;
      windows_.push_back(laptop_.desktop.OpenInForeground(std::move(window)));
      laptop_.Settle();
    };
    switch (Pick(9)) {
      case 0:
        return open({.style = kDialogStyle});
      case 1:
        return open({.style = kNoMaximizeStyle});
      case 2:
        return open({.className = L"Chrome_WidgetWin_1", .style = kFramedStyle | os::kWsMaximize});
      case 3:
        return open({.program = kElevated});
      case 4:
        return open({.program = kOffice});
      case 5:
        return open({.style = Pick(2) == 0 ? kNoMaximizeStyle : kFramedStyle, .refusesMoves = true});
      case 6:
        return open({.onChange = [this, life = std::make_shared<std::uint32_t>(3 + Pick(8))](WindowHandle self) {
          if (--*life == 0) laptop_.desktop.Close(self);
        }});
      case 7:
        open({.className = kFrameClass, .title = L"App"});
        laptop_.desktop.Open({.className = kCoreClass, .program = kPackaged, .area = place, .parent = windows_.back()});
        return;
      default:
        return open({});
    }
  }

  [[nodiscard]] std::vector<std::pair<WindowHandle, Window*>> Opened() {
    std::vector<std::pair<WindowHandle, Window*>> open;
    for (const auto handle : windows_) {
      if (auto* const found = laptop_.desktop.Find(handle)) open.emplace_back(handle, found);
    }
    return open;
  }

  /// How often the controller has placed a window.
  [[nodiscard]] std::ptrdiff_t TimesPlaced(WindowHandle window) const {
    const auto journal = laptop_.desktop.Journal(window);
    return std::count_if(journal.begin(), journal.end(), [](const std::wstring& entry) {
      return entry.starts_with(L"place ") || entry.starts_with(L"move ");
    });
  }

  WindowHandle Any() { return windows_[Pick(windows_.size())]; }

  // ---- What happens ----

  void OneEvent() {
    switch (Pick(12)) {
      case 0:
        return Open();
      case 1:
        return laptop_.ui.Hang();
      case 2:
        return laptop_.ui.Recover();
      case 3:
        return SwitchPanel();
      case 4:
      case 5:
      case 6:
        return Command();
      default:
        return Throw();
    }
  }

  void Throw() {
    const auto window = Any();
    const auto* found = laptop_.desktop.Find(window);
    if (found == nullptr || !found->IsUp()) return;
    const os::Point press{(found->area.left + found->area.right) / 2, found->area.top + 10};
    auto& mouse = laptop_.mouse;
    laptop_.desktop.SetForeground(window);
    {
      const auto quietly = laptop_.Quietly();
      Pick(10) == 0 ? mouse.GrabBorder(window, press) : mouse.Grab(window, press);
      for (auto legs = 1 + Pick(4); legs > 0; --legs) {
        const auto far = Pick(3) == 0 ? 700 : 200;
        mouse.Glide({press.x + Between(-far, far), press.y + Between(-40, far)});
      }
      if (Pick(6) == 0) mouse.CancelDrag();
      placedWhenDragged_[window] = TimesPlaced(window);  // a throw begins with the drop
      mouse.Drop();
    }
    Pick(2) == 0 ? laptop_.Advance(Pick(600)) : static_cast<void>(laptop_.Settle());
  }

  void Command() {
    static const auto commands = [] {
      std::vector<tessaview::UiCommand> all;
      for (const auto& rows : {tessaview::MoveCommands(), tessaview::WindowCommands()}) {
        all.insert(all.end(), rows.begin(), rows.end());
      }
      return all;
    }();
    const auto left = Between(0, 1800), top = Between(0, 1000);
    laptop_.ui.Send(std::wstring(commands[Pick(commands.size())].text),
                    {.handle = static_cast<std::uint64_t>(Any()),
                     .rect = {left, top, left + Between(100, 2500), top + Between(100, 1200)},
                     .point = {Between(0, 1900), Between(0, 1590)}});
  }

  void SwitchPanel() {
    switch (Pick(3)) {
      case 0:
        laptop_.displays.cPanel().Unplug();
        return laptop_.displays.Changed();
      case 1:
        laptop_.displays.cPanel().Plug();
        return laptop_.displays.Changed();
      default:
        for (const auto end : {2U, 3U}) {
          laptop_.hotKey.UseF6(end);
        }
    }
  }

  /// The user presses F6 until the panel is on.
  void SwitchPanelOn() {
    for (int presses = 0; presses < 3 && LastPowerTold(laptop_) != L"POWERON"; ++presses) {
      laptop_.hotKey.UseF6(presses % 2 == 0 ? 3 : 2);
      laptop_.Advance(10'000);
    }
    EXPECT_EQ(LastPowerTold(laptop_), L"POWERON");
  }

  /// In the middle of something else.
  void Disturb(std::uint32_t what, std::size_t which) {
    const auto window = windows_[which % windows_.size()];
    auto* const found = laptop_.desktop.Find(window);
    if (what == 0) return laptop_.ui.Hang();
    if (what == 1) return laptop_.ui.Busy(300);
    if (what == 6) return laptop_.mouseHook.DiesNow();
    if (found == nullptr) return;
    if (what == 2) return laptop_.desktop.Close(window);
    if (what == 3) laptop_.desktop.Drag(window, {300, 200, 900, 600});  // in sight
    if (what == 4) found->responsive = false;
    if (what == 5) found->busyUntilMs = laptop_.NowMs() + 700, laptop_.After(700, [] {});
  }

  // ---- What must hold at rest ----

  void ExpectWindowsInSight() {
    const auto meet = [](const os::Rect& a, const os::Rect& b) {
      return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
    };
    for (const auto& [handle, window] : Opened()) {
      // Where the user drags a window that the controller has not placed since is the user's own affair.
      if (!window->IsUp() || TimesPlaced(handle) == placedWhenDragged_[handle]) continue;
      EXPECT_TRUE(meet(window->area, kBPanel) || meet(window->area, kCPanel));
    }
  }

  /// Each overlay that the UI was asked to show it was also asked to take down.
  void ExpectOverlayGone() {
    std::wstring last;
    for (const auto& text : laptop_.ui.Received()) {
      if (text.find(L"WS") != std::wstring::npos && text != L"WSENTER") last = text;
    }
    EXPECT_TRUE(last.empty() || last == L"WSPRESS") << testing::PrintToString(last);
  }

  void ExpectService() {
    EXPECT_EQ(laptop_.mouseHook.LongestHoldUpMs(), 0U);
    laptop_.ui.ForgetReceived();
    laptop_.ui.Send(L"BLGET");
    EXPECT_EQ(TimesTold(laptop_, L"BLSET"), 1);
    EXPECT_EQ(laptop_.processes.OpenHandles(), 0U);
    // The mover still works.
    const auto window = laptop_.desktop.OpenInForeground({});
    laptop_.Settle();
    DragOut(laptop_, window, kPress, kAway);
    laptop_.mouse.Drop();
    EXPECT_EQ(MoverWords(laptop_, window), (Texts{L"WSNORMAL", L"WSPRESS", L"WSPRESS"}));
  }

  std::mt19937 random_;
  Laptop laptop_;
  std::vector<WindowHandle> windows_;
  std::map<WindowHandle, std::ptrdiff_t> placedWhenDragged_;  // by the controller, when the user dragged it last
};

using ThrowingWindows = SeedsTest;

TEST_P(ThrowingWindows, ComesToRestWithEveryWindowInSightAndNoOverlayLeft) {
  kSeeds.PlayShare(GetParam(), [](unsigned seed) {
    Throwing play(seed);
    play.Play();
    play.ComeToRest();
  });
}

INSTANTIATE_TEST_SUITE_P(Seeds, ThrowingWindows, EachShare());

}  // namespace
