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
  using os::Topology;
  using Case = std::tuple<Topology, PanelRect, PanelRect>;
  Laptop laptop;
  for (const auto& [topology, b, c] :
       {Case{Topology::Extend, kB, kC}, {Topology::Internal, kB, kAbsent}, {Topology::External, kAbsent, kC}}) {
    laptop.displays.Project(topology);
    InitialDisplay();
    EXPECT_EQ(gBPanel.get(), b);
    EXPECT_EQ(gCPanel.get(), c);
  }
  laptop.registry.RemoveKey(sim::Registry::kFactoryConfig);
  InitialDisplay();
  EXPECT_EQ(gCPanel.get(), kAbsent);
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
