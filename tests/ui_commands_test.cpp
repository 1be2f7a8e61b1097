#include "os/files.h"
#include "os/messages.h"
#include "os/processes.h"
#include "os/registry.h"
#include "power/settings.h"
#include "tests/support.h"
#include "uilink/channel/ui_session.h"

namespace {

using namespace tessaview;
using namespace support;
using sim::PostedMessage;

TEST(UiCommands, NothingButTheWholeTextIsACommand) {
  RunningLaptop laptop;
  laptop.hotKey.Remove();
  const auto activations = laptop.apps.Activations().size();
  constexpr const wchar_t* kTexts[] = {
      L"BLSETX", L"blset",    L" BLSET",       L"GETPROCESSNAMES", L"POWERSAVER",       L"SETFREQUENCYX",
      L"DIED!",  L"NOTALIVE", L"SETTOUCHPADS", L"VERSION",         L"BLOCKACTIONMENUS", L"COPYWALLPAPER",
      L"",       L"alive",    L"version=1",    L"SETRESOLUTIONS",  L"GETFREQUENCYS",    L"CLOSEQUICKGUIDES"};
  for (const auto* text : kTexts) {
    SCOPED_TRACE(text);
    ForgetTheStory(laptop);
    laptop.ui.Send(text, {.percent = 1, .rect = {1, 2, 3, 4}, .point = {1280, 60}});
    // The record is logged before anything else, and nothing else follows.
    EXPECT_EQ(laptop.trace.Lines(), (Texts{L"Receivedata from UI = " + std::wstring(text) + L" \n"}));
    EXPECT_TRUE(laptop.ui.Received().empty());
    EXPECT_TRUE(laptop.firmware.Requests().empty());
    EXPECT_TRUE(laptop.displays.SettingsChanges().empty());
  }
  EXPECT_EQ(laptop.settings.Text(L"Backlight"), L"116");
  EXPECT_EQ(laptop.settings.Text(L"PowerSaving"), L"1");
  EXPECT_EQ(laptop.apps.Activations().size(), activations);
  EXPECT_FALSE(isTessaviewAlive());
  EXPECT_FALSE(gUIVersionReported());
  EXPECT_FALSE(isActionMenuBlocked());
}

TEST(UiLife, FollowsWhatTheUiSays) {
  RunningLaptop laptop;
  EXPECT_FALSE(isTessaviewAlive());
  for (const auto& [command, alive] :
       {std::pair(L"CLOSEQUICKGUIDE", true), {L"DIED", false}, {L"DIED", false}, {L"ALIVE", true}}) {
    SCOPED_TRACE(command);
    laptop.ui.Send(command);
    EXPECT_EQ(isTessaviewAlive(), alive);
    EXPECT_TRUE(laptop.ui.Received().empty());
  }
  laptop.ui.Send(L"BLOCKACTIONMENU");
  EXPECT_TRUE(isActionMenuBlocked());
}

constexpr auto kFactoryConfig = L"SOFTWARE\\NORV\\FactoryConfig";

TEST(UiLife, AliveIsNotedInTheFactoryConfigurationOnceSetupIsOver) {
  RunningLaptop laptop({.setupComplete = false});
  EXPECT_TRUE(laptop.apps.Activations().empty());

  laptop.ui.Send(L"ALIVE");
  EXPECT_TRUE(isTessaviewAlive());
  EXPECT_FALSE(laptop.registry.Text(kFactoryConfig, L"OobeCompleted"));
  ASSERT_EQ(laptop.apps.Activations().size(), 1u) << "the UI is started all the same";
  EXPECT_EQ(laptop.apps.Activations()[0].appUserModelId,
            L"7C31A0D4.TessaviewMaster_h2kq9vx81tmwe!7C31A0D4.TessaviewMaster");

  laptop.sessions.FinishSetup();
  laptop.ui.Send(L"CLOSEQUICKGUIDE");
  EXPECT_FALSE(laptop.registry.Text(kFactoryConfig, L"OobeCompleted")) << "only ALIVE says so";
  const auto before = laptop.apps.Activations().size();
  laptop.registry.RemoveKey(kFactoryConfig);
  laptop.faults.Fail<&os::WriteRegistryText>({.error = 5, .times = 1});
  laptop.ui.Send(L"ALIVE");
  EXPECT_EQ(laptop.apps.Activations().size(), before + 1) << "noted or not";
  laptop.ui.Send(L"ALIVE");
  EXPECT_EQ(laptop.registry.Text(kFactoryConfig, L"OobeCompleted"), L"1");
}

TEST(UiLife, AliveDoesNotWaitForTheActivation) {
  RunningLaptop laptop;
  laptop.faults.Slow<&os::ActivateApplication>(30'000);
  laptop.After(1000, [&] { laptop.window.Post([](const auto& events) { events.sessionChange(7); }); });
  laptop.window.Send([](const auto& events) {
    const auto record = sim::EncodeUiRecord({.text = L"ALIVE"});
    events.copyData(102, record);
  });
  laptop.Advance(2000);
  EXPECT_TRUE(laptop.trace.Contains(L"WTS_SESSION_LOCK \n")) << "the main thread serves other messages meanwhile";
  laptop.Settle();
  EXPECT_TRUE(laptop.trace.Contains(L"AppActivationMgr->ActivateApplication Sucessed\n"));
}

TEST(ProcessName, IsTheFileNameOfTheWindowsProgram) {
  using Case = std::tuple<const wchar_t*, const wchar_t*>;
  RunningLaptop laptop;
  for (const auto& [program, answer] :
       {Case{L"C:\\Program Files\\My.App.v2\\Tool.Kit.exe", L"PROCESSNAME=Tool.Kit"},
        Case{L"C:\\Program.Files\\noextension", L"PROCESSNAME=noextension"},
        Case{L"D:\\\u4E2D\u6587 \u00C4.exe", L"PROCESSNAME=\u4E2D\u6587 \u00C4"}, Case{L"C:\\.exe", L"PROCESSNAME="}}) {
    ForgetTheStory(laptop);
    const auto window = laptop.desktop.Open({.program = program});
    laptop.ui.Send(L"GETPROCESSNAME", {.handle = static_cast<std::uint64_t>(window)});
    EXPECT_EQ(laptop.ui.Received(), Texts{answer});
  }
}

TEST(ProcessName, IsEmptyWhereItCannotBeTold) {
  RunningLaptop laptop;
  const auto window = laptop.desktop.Open({.program = L"C:\\Windows\\secret.exe"});
  const auto ask = [&](std::uint64_t handle) {
    ForgetTheStory(laptop);
    laptop.ui.Send(L"GETPROCESSNAME", {.handle = handle});
    return LastTold(laptop);
  };
  EXPECT_EQ(ask(0), L"PROCESSNAME=");
  EXPECT_EQ(ask(0xFFFF'FFFF'FFFF'FFFF), L"PROCESSNAME=");
  laptop.processes.Protect(laptop.processes.IdOf(L"C:\\Windows\\secret.exe"));
  EXPECT_EQ(ask(static_cast<std::uint64_t>(window)), L"PROCESSNAME=");
  laptop.desktop.Close(window);
  EXPECT_EQ(ask(static_cast<std::uint64_t>(window)), L"PROCESSNAME=");
  EXPECT_EQ(laptop.processes.OpenHandles(), 0u);

  const auto longest = laptop.desktop.Open({.program = L"C:\\" + std::wstring(400, L'n') + L".exe"});
  EXPECT_EQ(ask(static_cast<std::uint64_t>(longest)), L"PROCESSNAME=" + std::wstring(247, L'n'));
}

TEST(TouchPadCommand, AsksTheHotKeyComponent) {
  RunningLaptop laptop;
  const auto known = laptop.hotKey.Received();
  laptop.ui.Send(L"SETTOUCHPAD", {.percent = 9, .point = {9, 9}});
  const auto received = laptop.hotKey.Received();
  EXPECT_EQ(received.size(), known.size() + 1);
  EXPECT_EQ(received.back(), (PostedMessage{os::RegisterMessage(L"Touchpad status reported from ZRVHotkey"), 1, 1}));

  laptop.hotKey.Remove();
  laptop.desktop.Open({.className = L"HCONTROL", .title = L"Another window of this class"});
  laptop.ui.Send(L"SETTOUCHPAD");
  for (const auto& window : laptop.desktop.Windows()) EXPECT_TRUE(window.posted.empty()) << "posted to a stranger";
}

TEST(Versions, AreExchanged) {
  RunningLaptop laptop;
  using Case = std::tuple<const wchar_t*, os::FileVersion, const wchar_t*>;
  for (const auto& [text, own, answer] : {Case{L"VERSION=2.0.11.0", {1, 2, 3, 4}, L"VERSION=1.2.3.4"},
                                          Case{L"VERSION=", {0, 0, 0, 0}, L"VERSION=0.0.0.0"},
                                          Case{L"UI VERSION=7", {65535, 10, 200, 9}, L"VERSION=65535.10.200.9"}}) {
    ForgetTheStory(laptop);
    laptop.files.AddProgram(laptop.files.ownProgram, own);
    laptop.ui.Send(text);
    EXPECT_EQ(laptop.ui.Received(), Texts{answer});
    EXPECT_TRUE(gUIVersionReported());
  }
  laptop.faults.Fail<&os::ReadFileVersion>();
  laptop.ui.Send(L"VERSION=1");
  EXPECT_EQ(LastTold(laptop), L"VERSION=0.0.0.0");
}

}  // namespace
