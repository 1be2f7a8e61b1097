// Back to a powered C panel that extends the desktop, and what the system has stored of it.

#include "power/mode_reset.h"

#include "display/configuration_database.h"
#include "display/monitor_list.h"
#include "display/panel_geometry.h"
#include "display/projection_mode.h"
#include "display/stored_configuration.h"
#include "tests/support.h"

namespace {

using namespace support;

const std::wstring kDatabase = tessaview::kConfigurationDatabase;
constexpr auto kC = L"TSB88882290649088_1C_07DB_26";

/// The short key of a monitor that is listed, by its place in the list.
std::wstring Key(std::size_t index) {
  return tessaview::ListConnectedMonitors().at(index).shortKey;
}

void Reset(Laptop& laptop, Topology topology) {
  laptop.displays.Project(topology);
  laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);
  tessaview::QueryWinPMode();
  tessaview::ReSetTessaviewMode();
}

TEST(ModeReset, IsDecidedByTheMonitorsAndTheProjectionMode) {
  // The last byte of the C panel's identification makes its key; each generation of machines knows one, both the last.
  constexpr std::uint8_t kOfG2 = 0x26, kOfG1 = 0x82, kOfBoth = 0x8B;
  using Arrange = void (*)(Laptop&);
  constexpr Arrange kBoth = [](Laptop&) {};
  constexpr Arrange kOneOfTwo = [](Laptop& l) { l.faults.Short<&os::MonitorDevices>(1); };
  constexpr Arrange kOnlyB = [](Laptop& l) { l.displays.cPanel().Unplug(); };
  constexpr Arrange kOnlyC = [](Laptop& l) { l.displays.bPanel().Unplug(); };
  constexpr Arrange kNone = [](Laptop& l) { l.displays.RemoveAll(); };
  struct Case {
    Arrange monitors = kBoth;
    int generation = 2;
    std::uint8_t key = kOfG2;
    Topology topology = Topology::Clone;
    bool powersOn = false, extends = false;
  };
  for (const auto& each :
       {Case{.extends = true}, Case{.key = kOfBoth, .extends = true},
        Case{.generation = 1, .key = kOfG1, .extends = true}, Case{.key = kOfG1, .powersOn = true, .extends = true},
        Case{.generation = 1, .topology = Topology::Extend, .powersOn = true, .extends = true},
        Case{.generation = 1, .topology = Topology::Internal, .powersOn = true},
        Case{.monitors = kOneOfTwo, .topology = Topology::Internal, .powersOn = true, .extends = true},
        Case{.monitors = kOneOfTwo, .topology = Topology::External, .powersOn = true, .extends = true},
        Case{.monitors = kOneOfTwo}, Case{.monitors = kOnlyB, .topology = Topology::Internal, .powersOn = true},
        Case{.monitors = kOnlyC, .topology = Topology::External},
        Case{.monitors = kNone, .topology = Topology::Extend}}) {
    Laptop laptop({.saved = L"On", .generation = each.generation});
    laptop.displays.cPanel().edid.back() = each.key;
    each.monitors(laptop);
    Reset(laptop, each.topology);
    EXPECT_EQ(laptop.firmware.PanelOn(), each.powersOn);
    const auto& changes = laptop.displays.ConfigurationChanges();
    EXPECT_EQ(changes.size(), each.extends ? 1u : 0u);
    if (!changes.empty()) EXPECT_EQ(changes[0].flags, os::kSdcApply | os::kSdcTopologyExtend);
  }
}

TEST(ModeReset, MakesTheStoredConfigurationsWithTheCPanelTheNewest) {
  Laptop laptop({.saved = L"On"});
  laptop.displays.cPanel().Unplug();
  Reset(laptop, Topology::Internal);
  const auto b = kDatabase + L"\\" + Key(0);
  const auto withA = b + L"+" + kC + L"^12AB", withB = b + L"+TSB88882290649088_1C_07DB_8B^34CD", alone = b + L"^56EF",
             third = b + L"+" + kC + L"+GEN^78";
  for (const auto& key : {withA, withB, alone, third}) laptop.registry.SetQword(key, L"Timestamp", 1);
  laptop.sessions.LoseConsoleUntold();
  Reset(laptop, Topology::Internal);
  EXPECT_EQ(laptop.registry.Qword(withA, L"Timestamp"), 1u) << "not while another user is before the panels";
  laptop.sessions.IsPutBack();
  Reset(laptop, Topology::Internal);
  const auto stamp = laptop.registry.Qword(withA, L"Timestamp");
  EXPECT_GT(stamp, 1u);
  EXPECT_EQ(laptop.registry.Qword(withB, L"Timestamp"), stamp) << "both at the same time";
  EXPECT_EQ(laptop.registry.Qword(alone, L"Timestamp"), 1u);
  EXPECT_EQ(laptop.registry.Qword(third, L"Timestamp"), 1u) << "a set of monitors that is not there";
  EXPECT_EQ(laptop.registry.Subkeys(kDatabase).size(), 4u);
}

// ---- Stored configurations ----

void StoreWrongly(Laptop& laptop, const std::wstring& key) {
  for (const auto& [name, value] : {std::pair(L"Rotation", 2U),
                                    {L"DwmClipBox.right", 1080U},
                                    {L"DwmClipBox.bottom", 1920U},
                                    {L"PrimSurfSize.cx", 1080U},
                                    {L"PrimSurfSize.cy", 1920U},
                                    {L"ActiveSize.cx", 1920U},
                                    {L"ActiveSize.cy", 1080U}}) {
    laptop.registry.SetDword(key, name, value);
  }
}

TEST(StoredConfiguration, IsRepairedForThePresentMonitorsOnly) {
  Laptop laptop({.saved = L"On"});
  tessaview::InitialDisplay();
  const auto b = Key(0), c = Key(1);
  const auto both = kDatabase + L"\\" + b + L"*" + c + L"^1", swapped = kDatabase + L"\\" + c + L"+" + b + L"^2",
             other = kDatabase + L"\\" + b + L"+" + c + L"+GEN0001^3", alone = kDatabase + L"\\" + b + L"^4";
  const Texts mine{both + L"\\00\\00", swapped + L"\\01\\00"}, foreign{other + L"\\00\\00", alone + L"\\00\\00"},
      cs{both + L"\\00\\01", swapped + L"\\00\\00"};
  for (const auto& keys : {mine, foreign, cs}) {
    for (const auto& key : keys) StoreWrongly(laptop, key);
  }
  laptop.sessions.LoseConsoleUntold();
  EXPECT_FALSE(tessaview::RepairStoredPanelConfiguration()) << "the panels are another user's";
  laptop.sessions.IsPutBack();
  EXPECT_TRUE(tessaview::RepairStoredPanelConfiguration());
  const auto number = [&](const std::wstring& key, const wchar_t* name) { return laptop.registry.Dword(key, name); };
  for (const auto& key : mine) {
    EXPECT_EQ(number(key, L"Rotation"), 1u);
    EXPECT_EQ(number(key, L"DwmClipBox.right"), 1920u);
    EXPECT_EQ(number(key, L"PrimSurfSize.cy"), 1080u);
  }
  for (const auto& key : foreign) EXPECT_EQ(number(key, L"Rotation"), 2u) << "another set of monitors";
  for (const auto& key : cs) {
    EXPECT_EQ(number(key, L"Rotation"), 4u);
    EXPECT_EQ(number(key, L"DwmClipBox.right"), 1000u);
    EXPECT_EQ(number(key, L"PrimSurfSize.cx"), 504u);
  }
  EXPECT_FALSE(tessaview::RepairStoredPanelConfiguration()) << "nothing is left to repair";
  laptop.displays.cPanel().Unplug();
  EXPECT_TRUE(tessaview::RepairStoredPanelConfiguration()) << "now the one for the B panel alone fits";
}

}  // namespace
