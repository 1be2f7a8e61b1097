// What the UI is told of the panel: shown, not shown, mask closed; and the wait for a panel that comes late.

#include "power/panel_status.h"

#include "os/displays.h"
#include "tests/support.h"

namespace {

using namespace support;
using tessaview::isTessaviewPowerOn;

constexpr Topology kTopologies[] = {Topology::None, Topology::Internal, Topology::Clone, Topology::Extend,
                                    Topology::External};
constexpr std::uint32_t kLandscape = 3;

/// A running laptop with a choice, a projection and an orientation, and nothing told yet.
class PanelStatus : public testing::Test {
 protected:
  void Arrange(const std::wstring& saved, Topology topology, std::uint32_t orientation) {
    laptop.settings.Set(L"Tessaview", saved);
    laptop.displays.Project(topology == Topology::None ? Topology::Extend : topology);
    laptop.displays.topology = topology;
    laptop.displays.cPanel().orientation = orientation;
    ForgetTheStory(laptop);
  }

  RunningLaptop laptop{{.uiRunning = true}};
};

TEST_F(PanelStatus, IsOnAndUnmaskedOnlyWhenChosenOnExtendedAndTheRightWayUp) {
  for (const std::wstring saved : {L"On", L"Off"}) {
    for (const auto topology : kTopologies) {
      for (const std::uint32_t orientation : {0U, 1U, 2U, 3U, 4U}) {
        SCOPED_TRACE(testing::PrintToString(saved) + " " + testing::PrintToString(orientation));
        SCOPED_TRACE(static_cast<int>(topology));
        Arrange(saved, topology, orientation);
        const bool shown = saved == L"On" && topology == Topology::Extend && orientation == kLandscape;
        tessaview::Update_UI_Status();
        EXPECT_EQ(isTessaviewPowerOn(), shown);
        EXPECT_EQ(laptop.ui.Received(), Texts{shown ? L"POWERON" : L"POWEROFF"});
        ForgetTheStory(laptop);
        tessaview::Update_UI_Mask_Status();
        EXPECT_EQ(laptop.ui.Received(), shown ? Texts{L"CLOSEMASK"} : Texts{});
      }
    }
  }
}

TEST_F(PanelStatus, StaysAsItWasWithoutAChoice) {
  for (const auto* const saved : {L"", L"on", L"OFF"}) {
    for (const bool before : {false, true}) {
      SCOPED_TRACE(testing::PrintToString(saved));
      Arrange(before ? L"On" : L"Off", Topology::Extend, kLandscape);
      tessaview::Update_UI_Status();
      Arrange(saved, Topology::Extend, kLandscape);
      tessaview::Update_UI_Status();
      tessaview::Update_UI_Mask_Status();
      EXPECT_EQ(laptop.ui.Received(), Texts{});
      EXPECT_EQ(isTessaviewPowerOn(), before);
    }
  }
}

TEST_F(PanelStatus, WaitsForTheCPanelInStepsForThreeSecondsAtMost) {
  using Case = std::tuple<std::uint32_t, std::uint32_t, const wchar_t*>;
  for (const auto& [appearsAfterMs, waitedMs, told] :
       {Case{0, 0, L"POWERON"}, {1250, 1300, L"POWERON"}, {2950, 3000, L"POWERON"}, {3001, 3000, L"POWEROFF"}}) {
    SCOPED_TRACE(appearsAfterMs);
    Arrange(L"On", Topology::Extend, kLandscape);
    if (appearsAfterMs != 0) laptop.displays.AppearsAfter(laptop.displays.cPanel(), appearsAfterMs);
    const auto start = laptop.NowMs();
    tessaview::Update_UI_Status();
    EXPECT_EQ(laptop.NowMs() - start, waitedMs);
    ASSERT_FALSE(laptop.ui.Received().empty());
    EXPECT_EQ(laptop.ui.Received()[0], told);
    laptop.Advance(5000);
  }
}

TEST_F(PanelStatus, GoesByWhatItFoundWhenThePanelNeverGetsAnArea) {
  laptop.displays.cPanel().height = 0;
  const auto start = laptop.NowMs();
  tessaview::Update_UI_Mask_Status();
  EXPECT_EQ(laptop.NowMs() - start, 3000U);
  EXPECT_EQ(laptop.ui.Received(), Texts{L"CLOSEMASK"});
  EXPECT_EQ(laptop.trace.Count(L"EnumDisplayDevice Start"), 31U);
}

}  // namespace
