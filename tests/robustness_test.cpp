// Random faults and random events: whatever happens, the controller lives on, closes what it opened, and keeps the
// user's choices.

#include <iterator>
#include <random>
#include <set>

#include "tests/seeds.h"
#include "tests/spoilt_doors.h"
#include "tests/support.h"
#include "uilink/commands/ui_commands.h"

namespace {

using namespace support;

constexpr Seeds kSeeds{"ROBUSTNESS", 60};
constexpr std::uint32_t kSignOut = 0x8000'0000;  // why a session ends

/// Each command of the controller's, some as a UI may get them wrong.
std::vector<std::wstring> CommandTexts() {
  std::vector<std::wstring> texts{L"blget", L"VERSION=9.9", L"WALLPAPER=C:\\a.jpg"};
  for (const auto& command : tessaview::UiCommands()) texts.emplace_back(command.text);
  return texts;
}

/// One laptop's random life.
class RandomLife {
 public:
  explicit RandomLife(std::uint32_t seed)
      : random_(seed),
        saved_(Pick(2) == 0 ? L"On" : L"Off"),
        level_(10 + Pick(246)),
        laptop({.seed = seed,
                .interleaving = Pick(2) == 0,
                .turnsUndocumented = seed % 2 == 0,
                .backlight = level_,
                .backlightDC = level_,
                .saved = saved_,
                .generation = 1 + static_cast<int>(Pick(2))}),
        powers_{saved_},
        levels_{std::to_wstring(level_)} {
    BeUnkind(laptop, seed);
  }

  void SpoilDoors() {
    for (auto doors = Pick(5); doors > 0; --doors) {
      const auto& door = kDoors[Pick(std::size(kDoors))];
      const auto times = Pick(3) == 0 ? std::nullopt : std::optional(1 + Pick(4));
      const auto way = Pick(4);
      if (way == 0) door.slow(laptop.faults, 1 + Pick(700));
      if (way == 1) door.shorten(laptop.faults, Pick(4));
      if (way >= 2) door.fail(laptop.faults, {.error = 1 + Pick(1500), .times = times, .after = Pick(6)});
    }
  }

  void OneEvent() {
    const auto pick = Pick(15);
    if (pick <= 1) return SendCommand();
    if (pick == 2) return SendNoise();
    if (pick == 3) return UseHotKey();
    if (pick == 4) return ChangePower();
    if (pick == 5)
      return laptop.touch.ReportFrom(Pick(2) == 0 ? laptop.touch.touchScreen() : laptop.touch.touchPad(), Noise(20));
    if (pick == 6 && Pick(2) == 0) return laptop.sessions.SwitchSomehow(Pick(7));
    if (pick == 6) return Pick(2) == 0 ? laptop.sessions.Lock() : laptop.sessions.Unlock();
    if (pick == 7) return laptop.sessions.End(Pick(2) == 0 ? kSignOut : Pick(4));
    if (pick == 8) return Pick(2) == 0 ? laptop.touch.Unplug() : laptop.touch.Plug();
    if (pick == 9) return Pick(2) == 0 ? laptop.displays.cPanel().Detach() : laptop.displays.cPanel().Attach();
    if (pick == 10) return DisturbUi();
    if (pick == 11) return laptop.input.PressWinP();
    if (pick == 12) return DisturbDisplays();
    if (pick == 13) return DragAWindow();
    laptop.Advance(Pick(4000));
  }

  /// The doors work again, everything is plugged in and nobody hangs.
  void Heal() {
    laptop.faults.ClearAll();
    laptop.ui.Recover();
    laptop.touch.Plug();
    laptop.touch.modeSwitch().enabled = true;  // a reset that was cut short leaves it switched off
    laptop.displays.cPanel().Attach();
    laptop.displays.UserProjects(Topology::Extend);
    laptop.sessions.IsPutBack();
    laptop.sessions.Unlock();
  }

  /// The user's choices as they stand are the first ones, or ones that were made since.
  void ExpectChoicesKept() {
    EXPECT_TRUE(powers_.contains(laptop.settings.Text(L"Tessaview")));
    for (const auto* key : {L"Backlight", L"BacklightDC"}) EXPECT_TRUE(levels_.contains(laptop.settings.Text(key)));
    EXPECT_EQ(laptop.settings.Text(L"Mode"), L"Cursor");
  }

  void ExpectNothingLeftOpen() {
    EXPECT_EQ(laptop.firmware.OpenHandles() + laptop.touch.OpenNodeLists() + laptop.apps.OpenManagers(), 0U);
    EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.sessions.OpenEnvironments(), 0U);
    EXPECT_EQ(laptop.processes.OpenHandles(), 0U);
    EXPECT_LE(laptop.touch.OpenHandles(), 1U);
    EXPECT_LE(laptop.events.OpenHandles(), 2U) << "the mutex, and what the watchdog waits for";
    EXPECT_LE(laptop.power.Registrations(), 5U);
    EXPECT_TRUE(laptop.trace.Malformed().empty());
  }

  /// A healthy controller answers, and takes choices.
  void ExpectService() {
    laptop.ui.Die();
    laptop.ui.Start();
    laptop.ui.ForgetReceived();
    laptop.ui.Send(L"BLGET");
    EXPECT_EQ(TimesTold(laptop, L"BLSET"), 1);
    laptop.ui.Send(L"BLSET", {.percent = 40});
    EXPECT_TRUE(laptop.settings.Text(L"Backlight") == L"102" || laptop.settings.Text(L"BacklightDC") == L"102");
    laptop.hotKey.UseF6(2);
    EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"Off");
    EXPECT_FALSE(laptop.firmware.PanelOn());
  }

 private:
  std::uint32_t Pick(std::size_t choices) { return static_cast<std::uint32_t>(random_() % choices); }

  os::Bytes Noise(std::size_t size) {
    os::Bytes bytes(size == 0 ? 0 : Pick(size + 1));
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(Pick(4) == 0 ? Pick(256) : Pick(3));
    return bytes;
  }

  void SendCommand() {
    if (Pick(commands_.size()) == 0) return laptop.ui.SendFileCopy(L"COPYWALLPAPER", L"C:\\a.jpg", L"C:\\b.jpg");
    const auto text = commands_[Pick(commands_.size())];
    const auto percent = static_cast<std::int32_t>(4 + Pick(97));
    if (text == L"BLSET") levels_.insert(std::to_wstring(percent * 2555 / 1000));
    const bool isLevel = text == L"BLSET";
    laptop.ui.Send(text, {.handle = isLevel ? 0 : static_cast<std::uint64_t>(OpenWindow()),
                          .percent = isLevel ? std::optional(percent) : std::nullopt,
                          .rect = {100, 100, 2500, 900},
                          .point = {static_cast<std::int32_t>(Pick(3000)), 60}});
  }

  os::WindowHandle OpenWindow() {
    const auto top = Pick(2) == 0 ? 100 : 1100;
    return laptop.desktop.OpenInForeground({.title = L"W", .area = {200, top, 1200, top + 400}});
  }

  void DragAWindow() {
    const auto window = OpenWindow();
    const os::Point press{700, laptop.desktop.Find(window)->area.top + 10};
    laptop.mouse.DragTitleBar(window, press, {press.x + 75, press.y + 90});
    laptop.desktop.Close(window);
  }

  void SendNoise() {
    constexpr std::size_t kSizes[] = {0, 1, 16, 519, 551, 552, 553, 1559, 1560, 1561, 5000};
    constexpr std::uint64_t kKinds[] = {0, 101, 102, 103, 104, ~std::uint64_t{0}};
    auto bytes = Noise(6000);
    auto start = commands_[Pick(commands_.size())];
    if (start == L"BLSET") start = L"BLGET";  // its level would be a random one
    for (std::size_t i = 0; i < start.size() && 2 * i + 1 < bytes.size() && bytes[0] != 0; ++i) {
      bytes[2 * i] = static_cast<std::uint8_t>(start[i]);
      bytes[2 * i + 1] = 0;
    }
    bytes.resize(kSizes[Pick(std::size(kSizes))], static_cast<std::uint8_t>(Pick(256)));
    laptop.ui.SendRaw(kKinds[Pick(std::size(kKinds))], bytes);
  }

  void UseHotKey() {
    const auto pick = Pick(5);
    if (pick == 0) return laptop.hotKey.PressF6(1 + static_cast<int>(Pick(4)));
    if (pick == 1) {
      powers_.insert({L"Off", L"On"});
      return laptop.hotKey.EndF6(Pick(5));
    }
    if (pick == 2) {
      laptop.firmware.Flip(Pick(2) == 0);
      return laptop.hotKey.FlipChanged();
    }
    if (pick == 3) return laptop.hotKey.Notify(Pick(0xF9), Pick(8));  // none of those above
    laptop.hotKey.TouchPadStatus(Pick(5), Pick(5));
  }

  void ChangePower() {
    const auto pick = Pick(5);
    if (pick == 0) return laptop.power.Plug();
    if (pick == 1) return laptop.power.Unplug();
    if (pick == 2) return laptop.power.BatterySaver(Pick(2) == 0);
    if (pick == 3) return laptop.power.Broadcast(Pick(20));
    laptop.power.Notify(static_cast<os::PowerSetting>(Pick(5)), Pick(300));
  }

  void DisturbDisplays() {
    constexpr Topology kChoices[] = {Topology::Internal, Topology::Clone, Topology::Extend, Topology::External};
    const auto pick = Pick(3);
    if (pick == 0) return laptop.displays.UserProjects(kChoices[Pick(std::size(kChoices))]);
    auto& screen = Pick(2) == 0 ? laptop.displays.bPanel() : laptop.displays.cPanel();
    if (pick == 1) screen.Rotate(Pick(4));
    if (pick == 2) screen.MoveTo(static_cast<std::int32_t>(Pick(3000)), static_cast<std::int32_t>(Pick(3000)));
    laptop.displays.Changed();
  }

  void DisturbUi() {
    const auto pick = Pick(5);
    if (pick == 0) return laptop.ui.Die();
    if (pick == 1) return laptop.ui.Start();
    if (pick == 2) return laptop.ui.OpenGuide();
    if (pick == 3) return laptop.ui.Busy(Pick(3000));
    Pick(2) == 0 ? laptop.ui.Hang() : laptop.ui.Recover();
  }

  std::mt19937 random_;
  const std::vector<std::wstring> commands_ = CommandTexts();
  const std::wstring saved_;
  const std::uint32_t level_;

 public:
  Laptop laptop;

 private:
  std::set<std::wstring> powers_, levels_;  // what the settings may say by now
};

using Robustness = SeedsTest;

TEST_P(Robustness, SurvivesFaultsAndNoiseAndKeepsTheUsersChoices) {
  static constexpr int kEvents = 40, kEventsWhileStarting = 4;
  static constexpr int kNoThread = 11;  // without one for its watchdog the controller does not run
  kSeeds.PlayShare(GetParam(), [](unsigned seed) {
    RandomLife life(seed);
    life.SpoilDoors();
    const bool started = life.laptop.Boot();  // it may wait for the touch pad or the desktop
    if (life.laptop.ExitCode() == kNoThread) return;
    life.ExpectChoicesKept();
    for (int i = 0; i < kEvents; ++i) {
      if (!started && i == kEventsWhileStarting) life.Heal();
      if (i == kEvents / 2) life.SpoilDoors();
      life.OneEvent();
    }
    life.Heal();
    EXPECT_TRUE(life.laptop.Settle());
    EXPECT_EQ(life.laptop.ExitCode(), std::nullopt);
    life.ExpectChoicesKept();
    life.ExpectService();
    life.ExpectNothingLeftOpen();
  });
}

INSTANTIATE_TEST_SUITE_P(Seeds, Robustness, EachShare());

}  // namespace
