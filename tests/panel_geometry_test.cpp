// The two rectangles everybody reads: refreshed from the settings view, zero for a panel that is not there.

#include "display/panel_geometry.h"

#include <gtest/gtest.h>

#include "os/displays.h"
#include "os/threads.h"
#include "tests/support.h"

namespace {

using sim::Laptop;
using tessaview::gBPanel;
using tessaview::gCPanel;
using tessaview::InitialDisplay;
using tessaview::PanelRect;

constexpr PanelRect kAbsent{}, kB{0, 0, 1920, 1080}, kC{0, 1080, 1920, 515};

TEST(PanelGeometry, IsThatOfThePanelsThatAreThere) {
  struct Case {
    const char* story;
    void (*change)(Laptop& laptop);
    PanelRect b, c;
  };
  const Case cases[] = {
      {"only B", [](Laptop& l) { l.displays.Project(os::Topology::Internal); }, kB, kAbsent},
      {"only C", [](Laptop& l) { l.displays.Project(os::Topology::External); }, kAbsent, kC},
      {"no factory ids", [](Laptop& l) { l.registry.RemoveKey(L"SOFTWARE\\NORV\\FactoryConfig"); }, {}, {}},
      {"no display paths", [](Laptop& l) { l.faults.Fail<&os::QueryDisplayConfiguration>(); }, {}, {}},
      {"another scale", [](Laptop& l) { l.displays.bPanel().dpi = l.displays.cPanel().dpi = 192; }, kB, kC},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.story);
    Laptop laptop;
    InitialDisplay();
    ASSERT_EQ(gBPanel.get(), kB);
    ASSERT_EQ(gCPanel.get(), kC);
    c.change(laptop);
    InitialDisplay();
    EXPECT_EQ(gBPanel.get(), c.b);
    EXPECT_EQ(gCPanel.get(), c.c);
  }
}

/// Several threads refresh at once while the system is slow and the panel comes and goes: each refresh is whole.
TEST(PanelGeometry, IsRefreshedByOneThreadAtATime) {
  for (std::uint32_t seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE(seed);
    Laptop laptop({.seed = seed, .interleaving = true});
    laptop.faults.Slow<&os::DesktopMonitors>(7);
    const auto start = laptop.NowMs();
    for (int i = 0; i < 4; ++i) {
      os::StartThread(L"refresher", [] {
        for (int round = 0; round < 3; ++round) InitialDisplay();
      });
    }
    laptop.After(10, [&] { laptop.displays.cPanel().Unplug(); });
    laptop.After(40, [&] { laptop.displays.cPanel().Plug(); });
    EXPECT_TRUE(laptop.Settle());
    EXPECT_EQ(gBPanel.get(), kB);
    EXPECT_EQ(gCPanel.get(), kC);
    EXPECT_EQ(laptop.NowMs() - start, 12 * 7U) << "no two searches at the same time";
  }
}

}  // namespace
