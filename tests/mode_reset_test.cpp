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
  Reset(laptop, Topology::Internal);
  const auto stamp = laptop.registry.Qword(withA, L"Timestamp");
  EXPECT_GT(stamp, 1u);
  EXPECT_EQ(laptop.registry.Qword(withB, L"Timestamp"), stamp) << "both at the same time";
  EXPECT_EQ(laptop.registry.Qword(alone, L"Timestamp"), 1u);
  EXPECT_EQ(laptop.registry.Qword(third, L"Timestamp"), 1u) << "a set of monitors that is not there";
  EXPECT_EQ(laptop.registry.Subkeys(kDatabase).size(), 4u);
}

// A panel that gets power comes into the configuration that is the newest for the monitors that are there then.
TEST(ModeReset, PowersThePanelAfterTheTimeStampsAndBeforeItExtends) {
  Laptop laptop({.saved = L"On"});
  laptop.firmware.panelLeavesWhenOff = true;
  laptop.displays.cPanel().Unplug();
  laptop.displays.AddMonitor({.x = 1920});
  const auto b = kDatabase + L"\\" + Key(0), other = Key(1);
  const auto extended = b + L"+" + kC + L"+" + other + L"^0", cloned = b + L"*" + kC + L"*" + other + L"^0";
  laptop.registry.SetQword(cloned, L"Timestamp", 2);
  Reset(laptop, Topology::Clone);
  EXPECT_EQ(laptop.displays.topology, Topology::Extend) << "although it came as a clone";

  laptop.displays.cPanel().Unplug();
  laptop.registry.SetQword(cloned, L"Timestamp", laptop.registry.Qword(extended, L"Timestamp").value_or(0) + 1);
  laptop.Advance(1);
  Reset(laptop, Topology::Internal);
  EXPECT_EQ(laptop.displays.topology, Topology::Extend);
}

// ---- Stored configurations ----

using Values = std::vector<std::pair<const wchar_t*, std::uint32_t>>;
const Values kOfB{{L"Rotation", 1},           {L"DwmClipBox.left", 0},      {L"DwmClipBox.top", 0},
                  {L"DwmClipBox.right", 1920}, {L"DwmClipBox.bottom", 1080}, {L"PrimSurfSize.cx", 1920},
                  {L"PrimSurfSize.cy", 1080}},
    kOfC{{L"Rotation", 4},           {L"DwmClipBox.left", 0},     {L"DwmClipBox.top", 0},     {L"DwmClipBox.right", 1000},
         {L"DwmClipBox.bottom", 504}, {L"PrimSurfSize.cx", 504}, {L"PrimSurfSize.cy", 1000}};

TEST(StoredConfiguration, IsRepairedForThePresentMonitorsOnly) {
  Laptop laptop({.saved = L"On"});
  auto& monitor = laptop.displays.AddMonitor({.x = 1920});
  tessaview::InitialDisplay();
  const auto present = tessaview::ListConnectedMonitors();
  const auto b = Key(0), c = Key(1), other = Key(2);
  const auto same = kDatabase + L"\\" + b + L"*" + c + L"+" + other + L"^1",
             longNames =
                 kDatabase + L"\\" + other + L"+" + present[1].longKey + L"+" + present[0].longKey + L"^2",
             fewer = kDatabase + L"\\" + b + L"+" + c + L"^3", alone = kDatabase + L"\\" + b + L"^4";
  const Texts bs{same + L"\\00\\00", longNames + L"\\02\\00"}, cs{same + L"\\00\\01", longNames + L"\\01\\00"},
      foreign{fewer + L"\\00\\00", alone + L"\\00\\00"};
  constexpr std::uint32_t kWrong = 77;
  const auto spoil = [&](const std::wstring& key, const wchar_t* name) { laptop.registry.SetDword(key, name, kWrong); };
  const auto number = [&](const std::wstring& key, const wchar_t* name) { return laptop.registry.Dword(key, name); };
  for (const auto& keys : {bs, cs, foreign}) {
    for (const auto& key : keys) {
      laptop.registry.SetDword(key, L"ActiveSize.cx", 1920);
      laptop.registry.SetDword(key, L"ActiveSize.cy", 1080);
      spoil(key, L"Rotation");
    }
  }
  EXPECT_TRUE(tessaview::RepairStoredPanelConfiguration());
  EXPECT_FALSE(tessaview::RepairStoredPanelConfiguration()) << "nothing is left to repair";
  for (const auto& [keys, values] : {std::pair(bs, kOfB), {cs, kOfC}}) {
    for (const auto& [name, wanted] : values) {
      for (const auto& key : keys) EXPECT_EQ(number(key, name), wanted) << testing::PrintToString(key);
      spoil(keys[0], name);  // each by itself is a reason
      EXPECT_TRUE(tessaview::RepairStoredPanelConfiguration());
      EXPECT_EQ(number(keys[0], name), wanted) << testing::PrintToString(name);
    }
  }
  for (const auto& key : foreign) EXPECT_EQ(number(key, L"Rotation"), kWrong) << "another set of monitors";
  for (auto* const gone : {&laptop.displays.cPanel(), &monitor}) gone->Unplug();
  EXPECT_TRUE(tessaview::RepairStoredPanelConfiguration()) << "now the one for the B panel alone fits";
}

}  // namespace
