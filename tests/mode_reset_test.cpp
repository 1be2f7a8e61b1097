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

// A panel that gets power comes into the configuration that is the newest for the monitors that are there then.
TEST(ModeReset, PowersThePanelAfterTheTimeStampsAndBeforeItExtends) {
  for (const auto projection : {Topology::Internal, Topology::Clone}) {
    Laptop laptop({.saved = L"On"});
    laptop.firmware.panelLeavesWhenOff = true;
    laptop.displays.cPanel().Unplug();
    laptop.displays.AddMonitor({.x = 1920});
    const auto b = kDatabase + L"\\" + Key(0), other = Key(1);
    laptop.registry.SetQword(b + L"+" + kC + L"+" + other + L"^0", L"Timestamp", 1);
    laptop.registry.SetQword(b + L"*" + kC + L"*" + other + L"^0", L"Timestamp", 2);
    Reset(laptop, projection);
    EXPECT_EQ(laptop.displays.topology, Topology::Extend);
  }
}

// ---- Stored configurations ----

constexpr const wchar_t* kRepaired[] = {L"Rotation",         L"DwmClipBox.left",   L"DwmClipBox.top",
                                        L"DwmClipBox.right", L"DwmClipBox.bottom", L"PrimSurfSize.cx",
                                        L"PrimSurfSize.cy"};

TEST(StoredConfiguration, IsRepairedForThePresentMonitorsOnly) {
  Laptop laptop({.saved = L"On"});
  auto& monitor = laptop.displays.AddMonitor({.x = 1920});
  tessaview::InitialDisplay();
  const auto b = Key(0), c = Key(1), other = Key(2);
  const auto longName = [](std::size_t index) { return tessaview::ListConnectedMonitors().at(index).longKey; };
  const auto in = [](const std::wstring& name, const wchar_t* subkey) { return kDatabase + L"\\" + name + subkey; };
  const auto same = b + L"*" + c + L"+" + other + L"^1",
             long3 = other + L"+" + longName(1) + L"+" + longName(0) + L"^2";
  const Texts bs{in(same, L"\\00\\00"), in(long3, L"\\02\\00")}, cs{in(same, L"\\00\\01"), in(long3, L"\\01\\00")},
      foreign{in(b + L"+" + c + L"^3", L"\\00\\00"), in(b + L"^4", L"\\00\\00"),
              in(b + L"+" + c + L"+GEN^5", L"\\00\\00")};
  constexpr std::uint32_t kWrong = 77;
  for (const auto& key : {bs[0], bs[1], foreign[1]}) {
    laptop.registry.SetDword(key, L"ActiveSize.cx", 1920);
    laptop.registry.SetDword(key, L"ActiveSize.cy", 1080);
  }
  laptop.registry.SetDword(bs[0], kRepaired[0], kWrong);
  laptop.sessions.LoseConsoleUntold();
  EXPECT_FALSE(tessaview::RepairStoredPanelConfiguration()) << "the panels are another user's";
  laptop.sessions.IsPutBack();
  for (const auto& [keys, values] : {std::pair(bs, Words{1, 0, 0, 1920, 1080, 1920, 1080}),
                                     {cs, Words{4, 0, 0, 1000, 504, 504, 1000}},
                                     {foreign, Words{kWrong}}}) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      for (const auto& key : keys) laptop.registry.SetDword(key, kRepaired[i], kWrong);  // each alone is a reason
      EXPECT_EQ(tessaview::RepairStoredPanelConfiguration(), values[i] != kWrong);
      for (const auto& key : keys) EXPECT_EQ(laptop.registry.Dword(key, kRepaired[i]), values[i]) << i;
    }
  }
  for (auto* const gone : {&laptop.displays.cPanel(), &monitor}) gone->Unplug();
  EXPECT_TRUE(tessaview::RepairStoredPanelConfiguration()) << "now the one for the B panel alone fits";
}

}  // namespace
