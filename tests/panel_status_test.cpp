// What the UI is told of the panel: shown, not shown, mask closed; and the wait for a panel that comes late.

#include "power/panel_status.h"

#include <gtest/gtest.h>

#include "display/panel_orientation.h"
#include "display/panel_search.h"
#include "os/displays.h"
#include "tests/support.h"

namespace {

using os::Topology;
using sim::Laptop;
using support::ForgetTheStory;
using support::LogsInOrder;
using tessaview::isTessaviewPowerOn;
using Texts = std::vector<std::wstring>;

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

  support::RunningLaptop laptop{{.uiRunning = true}};
};

TEST_F(PanelStatus, IsOnAndUnmaskedOnlyWhenChosenOnExtendedAndTheRightWayUp) {
  for (const std::wstring saved : {L"On", L"Off"}) {
    for (const auto topology : kTopologies) {
      for (const std::uint32_t orientation : {0U, 1U, 2U, 3U, 4U}) {
        SCOPED_TRACE(testing::PrintToString(saved) + " " + testing::PrintToString(orientation));
        SCOPED_TRACE(static_cast<int>(topology));
        Arrange(saved, topology, orientation);
        const bool shown = saved == L"On" && topology == Topology::Extend && orientation == kLandscape;
        isTessaviewPowerOn.set(!shown);
        tessaview::Update_UI_Status();
        EXPECT_EQ(isTessaviewPowerOn.get(), shown);
        EXPECT_EQ(laptop.ui.Received(), Texts{shown ? L"POWERON" : L"POWEROFF"});
        const auto* const why = shown ? L"[Update_UI_Status] Send to UI : Power On \n"
                                : saved == L"On"
                                    ? L"[Update_UI_Status] Send to UI : Power Off (Not extend mode or Not Landscape) \n"
                                    : L"[Update_UI_Status] Send to UI : Power Off (ini TessaviewStatus = Off) \n";
        EXPECT_TRUE(laptop.trace.Contains(why));

        ForgetTheStory(laptop);
        tessaview::Update_UI_Mask_Status();
        EXPECT_EQ(laptop.ui.Received(), shown ? Texts{L"CLOSEMASK"} : Texts{});
        EXPECT_EQ(laptop.trace.Contains(L"[Update_UI_Mask_Status] Display On CLOSEMASK \n"), shown);
      }
    }
  }
}

TEST_F(PanelStatus, StaysAsItWasWithoutAChoice) {
  for (const auto* const saved : {L"", L"on", L"ON", L"off", L"OFF", L"1"}) {
    for (const bool before : {false, true}) {
      SCOPED_TRACE(testing::PrintToString(saved));
      Arrange(saved, Topology::Extend, kLandscape);
      isTessaviewPowerOn.set(before);
      tessaview::Update_UI_Status();
      tessaview::Update_UI_Mask_Status();
      EXPECT_EQ(laptop.ui.Received(), Texts{});
      EXPECT_EQ(isTessaviewPowerOn.get(), before);
    }
  }
}

TEST_F(PanelStatus, IsOffWhenTheProjectionCannotBeRead) {
  Arrange(L"On", Topology::Extend, kLandscape);
  laptop.faults.Fail<&os::QueryDisplayConfiguration>({.after = 1});  // after the panel search
  tessaview::Update_UI_Status();
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWEROFF"});
}

// ---- A panel that comes late ----

TEST_F(PanelStatus, WaitsForTheCPanelInStepsForThreeSecondsAtMost) {
  struct Case {
    const char* story;
    std::uint32_t appearsAfterMs, waitedMs;
    const wchar_t* told;
  };
  for (const auto& c : {Case{"there already", 0, 0, L"POWERON"},
                        {"a little late", 1, 100, L"POWERON"},
                        {"late", 1250, 1300, L"POWERON"},
                        {"just in time", 2950, 3000, L"POWERON"},
                        {"too late", 3001, 3000, L"POWEROFF"}}) {
    SCOPED_TRACE(c.story);
    Arrange(L"On", Topology::Extend, kLandscape);
    if (c.appearsAfterMs != 0) laptop.displays.AppearsAfter(laptop.displays.cPanel(), c.appearsAfterMs);
    const auto start = laptop.NowMs();
    tessaview::Update_UI_Status();
    EXPECT_EQ(laptop.NowMs() - start, c.waitedMs);
    EXPECT_EQ(laptop.ui.Received(), Texts{c.told});
    laptop.Advance(5000);
  }
}

TEST_F(PanelStatus, GoesByWhatItFoundWhenThePanelNeverGetsAnArea) {
  for (const bool widthOnly : {true, false}) {
    Arrange(L"On", Topology::Extend, kLandscape);
    (widthOnly ? laptop.displays.cPanel().width : laptop.displays.cPanel().height) = 0;
    const auto start = laptop.NowMs();
    tessaview::Update_UI_Mask_Status();
    EXPECT_EQ(laptop.NowMs() - start, 3000U);
    EXPECT_EQ(laptop.ui.Received(), Texts{L"CLOSEMASK"});
    EXPECT_EQ(laptop.trace.Count(L"EnumDisplayDevice Start"), 31U);
    laptop.displays.cPanel().width = 1920, laptop.displays.cPanel().height = 515;
  }
}

TEST_F(PanelStatus, TellsTheLogWhereThePanelsAre) {
  Arrange(L"On", Topology::Extend, kLandscape);
  laptop.displays.cPanel().MoveTo(-7, 1080);
  tessaview::Update_UI_Status();
  const auto path = L"[Update_UI_Status] Read ini = " + laptop.settings.Path() + L" \n";
  EXPECT_TRUE(
      LogsInOrder(laptop, {L"[Update_UI_Status] ------- Start ------- \n", path.c_str(), L"EnumDisplayDevice Start",
                           L"Win + P = EXTEND Mode (Extend) \n", L"CPanelDisplayOrientation = Landscape \n",
                           L"[Update_UI_Status] Send to UI : Power On \n",
                           L"[Update_UI_Status] Global gBPanel X: 0, Y: 0, Wdith: 1920, Height: 1080 \n",
                           L"[Update_UI_Status] Global gCPanel X: -7, Y: 1080, Wdith: 1920, Height: 515 \n",
                           L"[Update_UI_Status] ------- End ------- \n"}));
}

// ---- The orientation, in the words of somebody sitting before the panel ----

TEST(PanelOrientation, IsLandscapeAtTwoHundredAndSeventyDegreesOnly) {
  struct Case {
    std::uint32_t orientation;
    const wchar_t* line;
    bool landscape;
  };
  for (const auto& c : {Case{0, L"CPanelDisplayOrientation = Portrait \n", false},
                        {1, L"CPanelDisplayOrientation = Landscape (flipped) \n", false},
                        {2, L"CPanelDisplayOrientation = Portrait (flipped) \n", false},
                        {3, L"CPanelDisplayOrientation = Landscape \n", true},
                        {4, L"CPanelDisplayOrientation = Unknown \n", false}}) {
    SCOPED_TRACE(c.orientation);
    Laptop laptop;
    laptop.displays.cPanel().orientation = c.orientation;
    tessaview::EnumDisplayDevice();
    laptop.trace.Clear();
    EXPECT_EQ(tessaview::IsCPanelLandscape(), c.landscape);
    EXPECT_EQ(laptop.trace.Lines(), Texts{c.line});

    laptop.displays.cPanel().Unplug();
    tessaview::EnumDisplayDevice();
    EXPECT_FALSE(tessaview::IsCPanelLandscape());
    EXPECT_EQ(laptop.trace.Lines().back(), L"CPanelDisplayOrientation = Portrait \n") << "without a panel";
  }
}

}  // namespace
