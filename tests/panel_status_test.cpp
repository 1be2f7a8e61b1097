// What the UI is told of the panel: shown, not shown, mask closed; and the wait for a panel that comes late.

#include "power/panel_status.h"

#include "tests/support.h"

namespace {

using namespace support;

constexpr std::uint32_t kLandscape = 3;

class PanelStatus : public testing::Test {
 protected:
  RunningLaptop laptop{{.saved = L"On", .uiRunning = true}};
};

TEST_F(PanelStatus, IsOnAndUnmaskedOnlyWhenChosenOnExtendedAndTheRightWayUp) {
  for (const std::wstring saved : {L"On", L"Off", L"on", L""}) {
    for (const auto topology : {Topology::Internal, Topology::Clone, Topology::Extend, Topology::External}) {
      for (const std::uint32_t orientation : {0U, 1U, kLandscape, 4U}) {
        laptop.settings.Set(L"Tessaview", saved);
        laptop.displays.Project(topology);
        laptop.displays.cPanel().orientation = orientation;
        laptop.ui.ForgetReceived();
        const bool shown = saved == L"On" && topology == Topology::Extend && orientation == kLandscape;
        const bool chosen = saved == L"On" || saved == L"Off";  // else all stays as it was
        tessaview::Update_UI_Status();
        tessaview::Update_UI_Mask_Status();
        EXPECT_EQ(laptop.ui.Received(), shown    ? (Texts{L"POWERON", L"CLOSEMASK"})
                                        : chosen ? Texts{L"POWEROFF"}
                                                 : Texts{});
      }
    }
  }
}

TEST_F(PanelStatus, WaitsForTheCPanelInStepsForThreeSecondsAtMost) {
  for (const auto& [appearsAfterMs, waitedMs] : {std::pair(1250U, 1300U), {2950U, 3000U}, {3001U, 3000U}}) {
    laptop.ui.ForgetReceived();
    laptop.displays.AppearsAfter(laptop.displays.cPanel(), appearsAfterMs);
    const auto start = laptop.NowMs();
    tessaview::Update_UI_Status();
    EXPECT_EQ(laptop.NowMs() - start, waitedMs);
    EXPECT_EQ(laptop.ui.Received().at(0), appearsAfterMs < 3000 ? L"POWERON" : L"POWEROFF");
    laptop.Advance(5000);
  }
}

TEST_F(PanelStatus, GoesByWhatItFoundWhenThePanelNeverGetsAnArea) {
  laptop.displays.cPanel().height = 0;
  const auto start = laptop.NowMs();
  tessaview::Update_UI_Mask_Status();
  EXPECT_EQ(laptop.NowMs() - start, 3000U);
  EXPECT_EQ(laptop.ui.Received(), Texts{L"CLOSEMASK"});
}

}  // namespace
