// The panels stay where they belong: on the real desktop of two panels, with real keys, messages and registry.
#include "tests/lab_test.h"
#include "ui/ui_message.h"

namespace {

using namespace lab;

class Displays : public LabTest {
 protected:
  void TearDown() override {
    (void)PlaceCPanel(0, 1080, 3);
    LabTest::TearDown();
  }

  static bool IsInPlace() {
    return Monitors() == std::vector<std::wstring>{L"1920x1080 at (0,0)", L"1920x515 at (0,1080)"};
  }

  /// The key of a listed monitor, as the controller logged it.
  std::wstring MonitorKey(std::size_t index) const {
    const auto begin = L"[Timestamp] MonitorList[" + std::to_wstring(index) + L"] : ";
    for (const auto& line : laptop.trace.Since(0)) {
      if (line.rfind(begin, 0) == 0) return line.substr(begin.size(), line.find_last_not_of(L" \n") + 1 - begin.size());
    }
    return {};
  }
};

TEST_F(Displays, TheCPanelThatAnotherProgramMovedOrTurnedIsPutBack) {
  StartController();
  ASSERT_TRUE(IsInPlace());
  const struct {
    int x, y;
    unsigned orientation;
  } places[] = {{1920, 0, 3}, {300, 1080, 3}, {0, 1080, 0}, {0, 1080, 1}};
  for (const auto& each : places) {
    const auto mark = laptop.trace.Mark();
    ASSERT_TRUE(PlaceCPanel(each.x, each.y, each.orientation));
    EXPECT_TRUE(laptop.trace.WaitFor(L"[CheckCPanel_Position_Orientation] SetMonitorEx bErrorCode = 1", mark))
        << each.x << " " << each.orientation;
    EXPECT_TRUE(Eventually(IsInPlace)) << each.x << " " << each.orientation;
    ASSERT_TRUE(laptop.WaitForController());
  }
  const auto mark = laptop.trace.Mark();
  ASSERT_TRUE(laptop.WaitForController());
  EXPECT_FALSE(laptop.trace.Contains(L"[CheckCPanel_Position_Orientation] isWrong*", mark)) << "and it is at rest";
}

TEST_F(Displays, F6OnBringsThePanelBack) {
  StartController();
  Controller::PressF6(1, kF6PanelOff);
  ASSERT_TRUE(laptop.requests.WaitFor(L"DEVS 0x00050031 = 0"));
  ASSERT_TRUE(laptop.WaitForController());
  const auto told = laptop.uiTalk.Mark(), asked = laptop.requests.Mark(), patched = laptop.patched.Mark();
  Controller::PressF6(1, kF6PanelOn);
  EXPECT_TRUE(UiIsTold(L"CLOSEMASK", told));
  EXPECT_TRUE(laptop.requests.WaitFor(L"DEVS 0x00050032 = 116", asked));
  EXPECT_TRUE(laptop.patched.WaitFor(L"SetDisplayConfig with 0 paths, flags 132", patched)) << "extend, at once";
  EXPECT_EQ(Setting("Tessaview"), "On");
}

TEST_F(Displays, WinPBringsBackAPanelThatIsOffAndWanted) {
  StartController();
  ASSERT_TRUE(laptop.firmware.Set(kPanelPower, kPanelOff));
  const auto asked = laptop.requests.Mark();
  keybd_event(VK_LWIN, 0, 0, 0);
  keybd_event('P', 0, 0, 0);
  keybd_event('P', 0, KEYEVENTF_KEYUP, 0);
  keybd_event(VK_LWIN, 0, KEYEVENTF_KEYUP, 0);
  EXPECT_TRUE(laptop.trace.WaitFor(L"[Win + P] Set TessaviewPowerControl(TRUE)"));
  EXPECT_TRUE(laptop.requests.WaitFor(L"DEVS 0x00050032 = 116", asked));
  EXPECT_TRUE(laptop.patched.WaitFor(L"SetDisplayConfig with 0 paths, flags 132"));
}

TEST_F(Displays, LidAndLidActionComeAsMessages) {
  constexpr std::uint32_t kClosed = 0, kOpened = 1, kDoNothing = 0, kHibernate = 2, kSleep = 1;
  StartController();
  auto asked = laptop.requests.Mark();
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kLidCloseAction, kSleep));
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kLidCloseAction, kDoNothing));
  EXPECT_TRUE(laptop.requests.WaitFor(L"DEVS 0x00050035 = 0", asked));
  auto told = laptop.uiTalk.Mark();
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kLidSwitchState, kClosed));
  EXPECT_TRUE(UiIsTold(L"POWEROFF", told));
  EXPECT_TRUE(UiIsTold(L"OPENMASK", told));
  told = laptop.uiTalk.Mark();
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kLidSwitchState, kOpened));
  EXPECT_TRUE(UiIsTold(L"POWERON", told));
  EXPECT_TRUE(UiIsTold(L"CLOSEMASK", told));
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kLidCloseAction, kHibernate));
  EXPECT_TRUE(laptop.requests.WaitFor(L"DEVS 0x00050035 = 1", asked));
  told = laptop.uiTalk.Mark();
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kConsoleDisplayState, 0));
  EXPECT_TRUE(UiIsTold(L"OPENMASK", told));
  ASSERT_TRUE(laptop.controller.NotifyPowerSetting(kConsoleDisplayState, 1));
  EXPECT_TRUE(UiIsTold(L"CLOSEMASK", told));
}

// ---- Stored configurations ----

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

TEST_F(Displays, WhatTheSystemHasStoredOfTheBPanelIsRepaired) {
  StartController();
  Controller::PressF6(1, kF6PanelOn);  // logs the monitors' keys
  ASSERT_TRUE(laptop.WaitForController());
  const auto b = MonitorKey(0), c = MonitorKey(1);
  ASSERT_FALSE(b.empty() || c.empty());
  const auto here = b + L"*" + c + L"^1\\00\\00", elsewhere = b + L"+GEN0001^2\\00\\00";
  for (const auto& key : {here, elsewhere}) {
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
  RegDeleteTreeW(HKEY_LOCAL_MACHINE, kDatabase);
}

}  // namespace
