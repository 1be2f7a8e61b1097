// Back to a powered C panel that extends the desktop, and what the system has stored of it.

#include "power/mode_reset.h"

#include "display/configuration_database.h"
#include "display/panel_geometry.h"
#include "display/projection_mode.h"
#include "display/stored_configuration.h"
#include "tests/support.h"

namespace {

using namespace support;

const std::wstring kDatabase = tessaview::kConfigurationDatabase;
constexpr auto kB = L"BOE0D530_0C_07E3_";  // the B panel's key, up to its checksum
constexpr auto kC = L"TSB88882290649088_1C_07DB_26";

/// The short key of a monitor that is listed, by its place in the list.
std::wstring Key(const Laptop& laptop, std::size_t index) {
  const auto begin = L"[Timestamp] MonitorList[" + std::to_wstring(index) + L"] : ";
  for (const auto& line : laptop.trace.Lines()) {
    if (line.rfind(begin, 0) == 0) return line.substr(begin.size(), line.size() - begin.size() - 2);
  }
  return {};
}

void Reset(Laptop& laptop, Topology topology) {
  laptop.displays.Project(topology);
  laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);
  tessaview::QueryWinPMode();
  tessaview::ReSetTessaviewMode();
}

TEST(ModeReset, IsDecidedByTheMonitorsAndTheProjectionMode) {
  enum Monitors { kNone, kBoth, kBothOfG1, kBothOther, kOnlyB, kOnlyC, kOneOfTwo, kG1Knows, kBothKnow };
  using Case = std::tuple<Monitors, Topology, const wchar_t*, bool, bool>;
  constexpr auto kSeveral = L"[Timestamp] More than two monitor \n";
  constexpr auto kInternal = L"[Timestamp] External another screen and PC screen only. Set power on, set extend \n";
  constexpr auto kExternal = L"[Timestamp] External another screen and Second screen only. Set power on, set extend \n";
  for (const auto& [monitors, topology, log, powersOn, extends] :
       {Case{kNone, Topology::Extend, L"[Timestamp] zero monitor \n", false, false},
        Case{kBoth, Topology::Clone, L"[Timestamp] set extend \n", false, true},
        Case{kBoth, Topology::Internal, kSeveral, false, true},
        Case{kBothOfG1, Topology::Clone, L"[Timestamp] Duplicate, set power on, set extend \n", true, true},
        Case{kBothOfG1, Topology::Extend, L"[Timestamp] Extend, set power on, set extend \n", true, true},
        Case{kBothOfG1, Topology::Internal, kSeveral, true, false},
        Case{kBothOther, Topology::Clone, L"[Timestamp] Duplicate, set power on, set extend \n", true, true},
        Case{kG1Knows, Topology::Clone, L"[Timestamp] set extend \n", false, true},
        Case{kBothKnow, Topology::Clone, L"[Timestamp] set extend \n", false, true},
        Case{kOneOfTwo, Topology::Internal, kInternal, true, true},
        Case{kOneOfTwo, Topology::External, kExternal, true, true},
        Case{kOneOfTwo, Topology::Clone, L"[Timestamp] MonitorCount = 2 \n", false, false},
        Case{kOnlyB, Topology::Internal, L"[Timestamp] Only B panel \n", true, false},
        Case{kOnlyC, Topology::External, L"[Timestamp] MonitorCount = 1 \n", false, false}}) {
    SCOPED_TRACE(testing::PrintToString(log));
    // The panel of the first generation has another key, so that a machine of that generation does not know this one.
    const bool g1 = monitors == kBothOfG1 || monitors == kG1Knows;
    Laptop laptop({.saved = L"On", .generation = g1 ? 1 : 2});
    if (monitors == kG1Knows || monitors == kBothOther) laptop.displays.cPanel().edid.back() = 0x82;
    if (monitors == kBothKnow) laptop.displays.cPanel().edid.back() = 0x8B;
    if (monitors == kNone) laptop.displays.RemoveAll();
    if (monitors == kOnlyB) laptop.displays.cPanel().Unplug();
    if (monitors == kOnlyC) laptop.displays.bPanel().Unplug();
    if (monitors == kOneOfTwo) laptop.faults.Short<&os::MonitorDevices>(1);
    Reset(laptop, topology);
    EXPECT_TRUE(laptop.trace.Contains(log));
    EXPECT_EQ(laptop.firmware.PanelOn(), powersOn);
    const auto& changes = laptop.displays.ConfigurationChanges();
    EXPECT_EQ(changes.size(), extends ? 1u : 0u);
    if (!changes.empty()) EXPECT_EQ(changes[0].flags, 0x84u);
    EXPECT_TRUE(laptop.displays.SettingsChanges().empty());
  }
}

TEST(ModeReset, MakesTheStoredConfigurationsWithTheCPanelTheNewest) {
  Laptop laptop({.saved = L"On"});
  laptop.displays.cPanel().Unplug();
  Reset(laptop, Topology::Internal);
  const auto b = Key(laptop, 0);
  EXPECT_EQ(b.rfind(kB, 0), 0u);

  const auto withA = kDatabase + L"\\" + b + L"+" + kC + L"^12AB",
             withB = kDatabase + L"\\" + b + L"+TSB88882290649088_1C_07DB_8B^34CD",
             alone = kDatabase + L"\\" + b + L"^56EF", third = kDatabase + L"\\" + b + L"+" + kC + L"+GEN^78";
  for (const auto& key : {withA, withB, alone, third}) laptop.registry.SetQword(key, L"Timestamp", 1);
  Reset(laptop, Topology::Internal);
  const auto stamp = laptop.registry.Qword(withA, L"Timestamp");
  ASSERT_TRUE(stamp);
  EXPECT_GT(*stamp, 1u);
  EXPECT_EQ(laptop.registry.Qword(withB, L"Timestamp"), stamp) << "both at the same time";
  EXPECT_EQ(laptop.registry.Qword(alone, L"Timestamp"), 1u);
  EXPECT_EQ(laptop.registry.Qword(third, L"Timestamp"), 1u) << "a set of monitors that is not there";
  EXPECT_TRUE(laptop.registry.Subkeys(kDatabase).size() == 4 && laptop.firmware.PanelOn());
}

TEST(ModeReset, HasTheSystemExtendOntoAPanelThatAppears) {
  RunningLaptop laptop({.saved = L"On", .uiRunning = true});
  laptop.displays.UserProjects(Topology::Extend);
  laptop.displays.UserProjects(Topology::Internal);
  laptop.displays.Undock(laptop.displays.cPanel());
  laptop.Advance(10'000);
  laptop.firmware.SetRegister(Firmware::kPower, Firmware::kPanelOff);
  laptop.input.PressWinP();
  laptop.displays.AppearsAfter(laptop.displays.cPanel(), 800);
  laptop.Advance(10'000);
  EXPECT_EQ(laptop.displays.topology, Topology::Extend) << "the newest that is stored for both panels";
  EXPECT_EQ(laptop.displays.cPanel().Area(), (os::Rect{0, 1080, 1920, 1595}));
  EXPECT_EQ(LastPowerTold(laptop), L"POWERON");
}

// ---- Stored configurations ----

struct Stored {
  std::uint32_t rotation, right, bottom, width, height, activeWidth, activeHeight;
};

void Store(Laptop& laptop, const std::wstring& key, const Stored& values) {
  const auto set = [&](const wchar_t* name, std::uint32_t value) { laptop.registry.SetDword(key, name, value); };
  set(L"Rotation", values.rotation);
  set(L"DwmClipBox.left", 0);
  set(L"DwmClipBox.top", 0);
  set(L"DwmClipBox.right", values.right);
  set(L"DwmClipBox.bottom", values.bottom);
  set(L"PrimSurfSize.cx", values.width);
  set(L"PrimSurfSize.cy", values.height);
  set(L"ActiveSize.cx", values.activeWidth);
  set(L"ActiveSize.cy", values.activeHeight);
}

TEST(StoredConfiguration, IsRepairedForThePresentMonitorsOnly) {
  Laptop laptop({.saved = L"On"});
  tessaview::InitialDisplay();
  tessaview::ReSetTessaviewMode();  // logs the keys
  const auto b = Key(laptop, 0), c = Key(laptop, 1);
  laptop.registry.RemoveKey(kDatabase + L"\\" + b + L"+" + c + L"^0");  // which it has stored
  constexpr Stored kTurned{4, 1080, 1920, 1080, 1920, 1920, 1080}, kRightC{4, 1000, 504, 504, 1000, 515, 1920};
  const auto both = kDatabase + L"\\" + b + L"*" + c + L"^1", swapped = kDatabase + L"\\" + c + L"+" + b + L"^2",
             other = kDatabase + L"\\" + b + L"+" + c + L"+GEN0001^3", alone = kDatabase + L"\\" + b + L"^4";
  const std::vector<std::wstring> mine{both + L"\\00\\00", swapped + L"\\01\\00"},
      foreign{other + L"\\00\\00", alone + L"\\00\\00"}, cs{both + L"\\00\\01", swapped + L"\\00\\00"};
  for (const auto& key : mine) Store(laptop, key, kTurned);
  for (const auto& key : foreign) Store(laptop, key, kTurned);
  for (const auto& key : cs) Store(laptop, key, kRightC);
  laptop.registry.SetDword(cs[1], L"Rotation", 1);

  EXPECT_TRUE(tessaview::RepairStoredPanelConfiguration());
  const auto number = [&](const std::wstring& key, const wchar_t* name) { return laptop.registry.Dword(key, name); };
  for (const auto& key : mine) {
    EXPECT_EQ(number(key, L"Rotation"), 1u);
    EXPECT_EQ(number(key, L"DwmClipBox.right"), 1920u);
    EXPECT_EQ(number(key, L"PrimSurfSize.cy"), 1080u);
  }
  for (const auto& key : foreign) EXPECT_EQ(number(key, L"Rotation"), 4u) << "another set of monitors";
  for (const auto& key : cs) {
    EXPECT_EQ(number(key, L"Rotation"), 4u);
    EXPECT_EQ(number(key, L"PrimSurfSize.cx"), 504u);
  }
  EXPECT_TRUE(
      LogsInOrder(laptop, {L"Panel rotation not correct, reset! \n", L"C panel rotation not correct, reset! \n"}));

  EXPECT_FALSE(tessaview::RepairStoredPanelConfiguration()) << "nothing is left to repair";
  laptop.registry.RemoveKey(cs[0]);
  laptop.displays.cPanel().Unplug();
  EXPECT_TRUE(tessaview::RepairStoredPanelConfiguration()) << "now the one for the B panel alone fits";
  EXPECT_TRUE(laptop.trace.Contains(L"Current MonitorConfiguration can not find Toshiba monitor ! \n"));
}

}  // namespace
