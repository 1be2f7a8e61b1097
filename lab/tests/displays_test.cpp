// The panels beyond the day: Win+P with real keys, and what the registry has stored of the displays.
#include "tests/lab_test.h"

namespace {

using namespace lab;

class Displays : public LabTest {
 protected:
  /// The key of a listed monitor, as the controller logged it.
  std::wstring MonitorKey(std::size_t index) const {
    const auto begin = L"[Timestamp] MonitorList[" + std::to_wstring(index) + L"] : ";
    for (const auto& line : laptop.trace.Since(0)) {
      if (line.starts_with(begin)) return line.substr(begin.size(), line.find_last_not_of(L" \n") + 1 - begin.size());
    }
    return {};
  }
};

TEST_F(Displays, WinPBringsBackAPanelThatIsOffAndWanted) {
  StartController();
  ASSERT_TRUE(laptop.firmware.Set(kPanelPower, kPanelOff));
  Happens(L"the user presses Win+P");
  keybd_event(VK_LWIN, 0, 0, 0);
  keybd_event('P', 0, 0, 0);
  keybd_event('P', 0, KEYEVENTF_KEYUP, 0);
  keybd_event(VK_LWIN, 0, KEYEVENTF_KEYUP, 0);
  EXPECT_TRUE(Traced(L"[Win + P] Set TessaviewPowerControl(TRUE)"));
  EXPECT_TRUE(Asked(L"DEVS 0x00050032 = 116"));
  EXPECT_TRUE(Patched(L"SetDisplayConfig with 0 paths, flags 132"));
}

constexpr wchar_t kDatabase[] = L"SYSTEM\\CurrentControlSet\\Control\\GraphicsDrivers\\Configuration";

void Store(const std::wstring& key, const wchar_t* value, DWORD number) {
  RegSetKeyValueW(HKEY_LOCAL_MACHINE, (kDatabase + (L"\\" + key)).c_str(), value, REG_DWORD, &number, sizeof number);
}

DWORD Stored(const std::wstring& key, const wchar_t* value) {
  DWORD number = 0xFFFFFFFF, size = sizeof number;
  RegGetValueW(HKEY_LOCAL_MACHINE, (kDatabase + (L"\\" + key)).c_str(), value, RRF_RT_REG_DWORD, nullptr, &number,
               &size);
  return number;
}

TEST_F(Displays, WhatTheSystemHasStoredOfThePanelsIsRepaired) {
  StartController();
  Controller::PressF6(1, kF6PanelOn);  // logs the monitors' keys
  ASSERT_TRUE(laptop.WaitForController());
  const auto b = MonitorKey(0), c = MonitorKey(1);
  ASSERT_FALSE(b.empty() || c.empty());
  const auto both = b + L"*" + c + L"^1\\00", here = both + L"\\00", cHere = both + L"\\01",
             elsewhere = b + L"+GEN0001^2\\00\\00";
  for (const auto& key : {here, cHere, elsewhere}) {
    Store(key, L"Rotation", 4);
    Store(key, L"ActiveSize.cx", 1920);
    Store(key, L"ActiveSize.cy", 1080);
  }
  Controller::PostHotKey(HotKey::FlipChanged);  // from now on turned displays are looked after
  ASSERT_TRUE(laptop.WaitForController());
  constexpr std::uint32_t kClone = 2;
  state.topology = kClone;
  // The message alone: while Wine really changes a display, its list of monitors is being made anew.
  ASSERT_TRUE(Deliver(Controller::Window(), WM_DISPLAYCHANGE, 32, MAKELPARAM(1920, 1080)));
  EXPECT_TRUE(Eventually([&] { return Stored(here, L"PrimSurfSize.cy") == 1080; }));
  EXPECT_EQ(Stored(here, L"Rotation"), 1u);
  EXPECT_EQ(Stored(here, L"DwmClipBox.right"), 1920u);
  EXPECT_EQ(Stored(elsewhere, L"Rotation"), 4u) << "another set of monitors";
  const bool toldByModel = c.starts_with(L"TSB8888");  // Wine 10 tells it; Wine 8 calls every monitor the same
  EXPECT_TRUE(Eventually([&] { return Stored(cHere, L"PrimSurfSize.cy") == (toldByModel ? 1000u : 0xFFFFFFFF); }));
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kDatabase);
}

}  // namespace
