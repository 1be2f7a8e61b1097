// Whatever happens to the displays, it settles: from many seeds, random sequences of docking, rotation, projection,
// lid and power events, with display calls that fail or are slow.

#include <random>

#include "display/panel_info.h"
#include "tests/seeds.h"
#include "tests/support.h"

namespace {

using namespace support;

constexpr Seeds kSeeds{"SETTLING", 120};  // as many as are quick under the sanitizers

class Sequence {
 public:
  explicit Sequence(unsigned seed)
      : random_(seed),
        laptop_({.seed = seed,
                 .interleaving = Pick(2) == 0,
                 .turnsUndocumented = seed % 2 == 0,
                 .saved = L"On",
                 .generation = 1 + static_cast<int>(Pick(2)),
                 .uiRunning = true}) {
    if (Pick(3) == 0) laptop_.displays.AddPrimary({1920, 200});
    BeUnkind(laptop_, seed);
    laptop_.Boot();
    laptop_.firmware.panelLeavesWhenOff = Pick(2) == 0;
    monitor_ = &laptop_.displays.AddMonitor({.plugged = false, .attached = false, .x = 1920});
  }

  void Play() {
    for (auto events = 3 + Pick(10); events > 0; --events) {
      if (Pick(3) == 0) SpoilDisplays();
      const auto before = Changes();
      OneEvent();
      ASSERT_LE(Changes() - before, kMostChangesPerEvent);
      if (Pick(2) == 0) laptop_.faults.ClearAll();
    }
  }

  /// With everything well again, something that the user sees happens once more, and half a minute passes.
  void ComeToRest() {
    laptop_.faults.ClearAll();
    laptop_.ui.Recover();
    laptop_.sessions.SwitchBack();
    laptop_.displays.Changed();
    laptop_.Advance(30'000);
    ExpectRest();
    LeaveNothingWrongAlone();
    PutRightWhatIsMoved();
  }

 private:
  static constexpr std::size_t kMostChangesPerEvent = 16;

  std::uint32_t Pick(std::size_t choices) { return static_cast<std::uint32_t>(random_() % choices); }

  Screen& CPanel() { return laptop_.displays.cPanel(); }

  [[nodiscard]] std::size_t Changes() const {
    return laptop_.displays.SettingsChanges().size() + laptop_.displays.ConfigurationChanges().size();
  }

  void SpoilDisplays() {
    auto& faults = laptop_.faults;
    const sim::Failure failure{.error = Pick(2) == 0 ? 31U : 122U, .times = 1 + Pick(4), .after = Pick(3)};
    switch (Pick(6)) {
      case 0:
        return faults.Fail<&os::ChangeDisplaySettings>(failure);
      case 1:
        return faults.Fail<&os::ChangeDisplayConfiguration>(failure);
      case 2:
        return faults.Fail<&os::QueryDisplayConfiguration>(failure);
      case 3:
        return faults.Fail<&os::CurrentDisplaySettings>(failure);
      case 4:
        return faults.Slow<&os::ChangeDisplaySettings>(Pick(2000));
      default:
        return faults.Slow<&os::QueryDisplayConfiguration>(Pick(800));
    }
  }

  void OneEvent() {
    constexpr Topology kChoices[] = {Topology::Internal, Topology::Clone, Topology::Extend, Topology::External};
    switch (Pick(12)) {
      case 10:
        return laptop_.sessions.SwitchSomehow(Pick(7));
      case 0:
        return laptop_.displays.Dock(*monitor_);
      case 1:
        return laptop_.displays.Undock(*monitor_);
      case 2:
        return Turn(CPanel());
      case 3:
        return Turn(laptop_.displays.bPanel());
      case 4:
        return laptop_.displays.UserProjects(kChoices[Pick(std::size(kChoices))]);
      case 5:
        if (Pick(2) == 0) laptop_.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);
        return laptop_.input.PressWinP();
      case 6:
        return Pick(2) == 0 ? laptop_.power.CloseLid() : laptop_.power.OpenLid();
      case 7:
        return laptop_.power.SetDisplay(static_cast<Power::Display>(Pick(3)));
      case 8:
        return Pick(2) == 0 ? laptop_.power.Unplug() : laptop_.power.Plug();
      case 9:
        laptop_.hotKey.PressF6();
        return laptop_.hotKey.EndF6(2 + Pick(2));
      default:
        CPanel().Unplug();
        laptop_.displays.Changed();
        laptop_.displays.AppearsAfter(CPanel(), 1 + Pick(5000));
        laptop_.Advance(6000);
    }
  }

  void Turn(Screen& screen) {
    screen.Rotate(Pick(4));
    laptop_.displays.Changed();
  }

  // ---- What must hold at rest ----

  [[nodiscard]] bool IsExtended() { return laptop_.displays.topology == Topology::Extend; }

  /// The middle below the B panel is taken by nobody else: the system would not put the panel there.
  [[nodiscard]] os::Rect WantedArea() {
    const auto b = laptop_.displays.bPanel().Area();
    const auto width = static_cast<std::int32_t>(CPanel().width), height = static_cast<std::int32_t>(CPanel().height);
    const auto x = b.left + (b.right - b.left - width) / 2;
    return {x, b.bottom, x + width, b.bottom + height};
  }

  void ExpectRest() {
    const bool wanted = laptop_.settings.Text(L"Tessaview") == L"On";
    const bool shown = wanted && IsExtended() && CPanel().orientation == 3;
    EXPECT_EQ(LastPowerTold(laptop_), shown ? L"POWERON" : L"POWEROFF");
    if (CPanel().OnDesktop() && laptop_.displays.topology == Topology::External) EXPECT_EQ(CPanel().orientation, 3U);
    if (!IsExtended() || !CPanel().plugged) return;  // the user's own choice, and a panel that is off and gone
    EXPECT_EQ(CPanel().orientation, 3U);
    // A place that could not be mended is left as it is: the same change would only come again.
    const bool isRefused = laptop_.trace.Contains(L"[CheckCPanel_Position_Orientation] SetMonitorEx bErrorCode = 0 \n");
    if (!isRefused) EXPECT_EQ(CPanel().Area(), WantedArea());
  }

  void LeaveNothingWrongAlone() {
    const auto before = Changes();
    laptop_.displays.Changed();
    laptop_.power.Unplug();
    laptop_.power.Plug();
    laptop_.Advance(30'000);
    EXPECT_EQ(Changes(), before);
  }

  void PutRightWhatIsMoved() {
    if (!IsExtended() || !CPanel().plugged || laptop_.displays.bPanel().orientation != 0 || monitor_->plugged) return;
    CPanel().MoveTo(-1920, static_cast<std::int32_t>(Pick(500)));
    laptop_.displays.Changed();
    laptop_.Advance(30'000);
    EXPECT_EQ(CPanel().Area(), WantedArea());
  }

  std::mt19937 random_;
  Laptop laptop_;
  Screen* monitor_ = nullptr;
};

using Settling = SeedsTest;

TEST_P(Settling, AfterTheLastEventThePanelIsInItsPlaceAndTheUiKnows) {
  kSeeds.PlayShare(GetParam(), [](unsigned seed) {
    Sequence sequence(seed);
    sequence.Play();
    sequence.ComeToRest();
  });
}

INSTANTIATE_TEST_SUITE_P(Seeds, Settling, EachShare());

}  // namespace
