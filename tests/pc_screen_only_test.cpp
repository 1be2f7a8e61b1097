// First-generation machines that start with "PC screen only" projection.

#include <gtest/gtest.h>

#include "os/device_io.h"
#include "tests/support.h"

namespace {

using os::Topology;
using sim::Firmware;
using support::LastTold;
using support::LogsInOrder;

TEST(PcScreenOnly, SwitchesThePanelOffAtTheStartOfAFirstGenerationMachine) {
  sim::Laptop laptop({.saved = L"On", .generation = 1, .uiRunning = true});
  laptop.displays.Project(Topology::Internal);
  EXPECT_TRUE(laptop.Boot());

  EXPECT_EQ(laptop.firmware.Writes(Firmware::kPower), std::vector<std::uint32_t>{0});
  EXPECT_EQ(LastTold(laptop), L"POWEROFF");
  EXPECT_TRUE(laptop.touch.InCursorMode());
  EXPECT_EQ(laptop.settings.Text(L"Tessaview"), L"On") << "the user chose nothing else";
  EXPECT_TRUE(LogsInOrder(laptop, {L"isOOBEComplete = 1 \n", L"Tessaview power off \n", L"Set cursor mode \n"}));
}

TEST(PcScreenOnly, LeavesAllOtherMachinesAlone) {
  using Case = std::tuple<const char*, int, Topology, bool>;
  for (const auto& [story, generation, topology, setupComplete] :
       {Case{"a machine of the second generation", 2, Topology::Internal, true},
        {"extended", 1, Topology::Extend, true},
        {"second screen only", 1, Topology::External, true},
        {"still in setup", 1, Topology::Internal, false}}) {
    SCOPED_TRACE(story);
    sim::Laptop laptop({.saved = L"On", .generation = generation, .setupComplete = setupComplete});
    laptop.displays.Project(topology);
    laptop.Boot();
    EXPECT_TRUE(laptop.firmware.Writes(Firmware::kPower).empty());
    EXPECT_FALSE(laptop.touch.InCursorMode());
  }
}

// The driver refuses one opening after the other: where it is that of the power-off, the rest happens all the same.
TEST(PcScreenOnly, TellsTheUiAndThePadEvenWhenTheFirmwareCannotBeOpened) {
  int refusedPowerOffs = 0;
  for (std::uint32_t opened = 0; opened < 12; ++opened) {
    SCOPED_TRACE(opened);
    sim::Laptop laptop({.saved = L"On", .generation = 1, .uiRunning = true});
    laptop.displays.Project(Topology::Internal);
    laptop.faults.Fail<&os::OpenDevice>({.times = 1, .after = opened});
    laptop.Boot();
    if (!laptop.trace.Contains(L"Set cursor mode \n")) continue;  // it could not tell its generation
    EXPECT_EQ(LastTold(laptop), L"POWEROFF");
    EXPECT_TRUE(laptop.touch.InCursorMode());
    if (laptop.firmware.Writes(Firmware::kPower).empty()) ++refusedPowerOffs;
  }
  EXPECT_EQ(refusedPowerOffs, 1);
}

}  // namespace
