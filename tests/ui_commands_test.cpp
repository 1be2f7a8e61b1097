#include "power/settings.h"
#include "tests/support.h"
#include "uilink/channel/ui_session.h"

namespace {

using namespace tessaview;
using namespace support;
using sim::PostedMessage;

constexpr auto kFactoryConfig = sim::Registry::kFactoryConfig;

TEST(UiCommands, NothingButTheWholeTextIsACommand) {
  RunningLaptop laptop;
  laptop.hotKey.Remove();
  auto texts = WordsOf(
      L"BLSETX blset GETPROCESSNAMES POWERSAVER SETFREQUENCYX DIED! NOTALIVE SETTOUCHPADS VERSION BLOCKACTIONMENUS "
      L"COPYWALLPAPER alive version=1 SETRESOLUTIONS GETFREQUENCYS CLOSEQUICKGUIDES");
  texts.insert(texts.end(), {L" BLSET", L""});
  for (const auto& text : texts) {
    ForgetTheStory(laptop);
    laptop.ui.Send(text, {.percent = 1, .rect = {1, 2, 3, 4}, .point = {1280, 60}});
    // The record is logged before anything else, and nothing else follows.
    EXPECT_EQ(laptop.trace.Lines(), (Texts{L"Receivedata from UI = " + text + L" \n"}));
  }
  ForgetTheStory(laptop);
  for (const auto* command : {L"", L"copywallpaper", L"COPYWALLPAPER ", L"COPYWALLPAPERS", L"BLGET"})
    laptop.ui.SendFileCopy(command, L"C:\\a", L"C:\\b");
  EXPECT_TRUE(laptop.trace.Lines().empty());
  EXPECT_FALSE(isTessaviewAlive() || gUIVersionReported() || isActionMenuBlocked());
}

TEST(UiLife, AliveIsNotedInTheFactoryConfigurationOnceSetupIsOver) {
  RunningLaptop laptop({.setupComplete = false});
  laptop.ui.Send(L"ALIVE");
  EXPECT_FALSE(laptop.registry.Text(kFactoryConfig, L"OobeCompleted"));
  ASSERT_EQ(laptop.apps.Activations().size(), 1u) << "the UI is started all the same";
  EXPECT_EQ(laptop.apps.Activations()[0].appUserModelId,
            L"7C31A0D4.TessaviewMaster_h2kq9vx81tmwe!7C31A0D4.TessaviewMaster");
  EXPECT_EQ(laptop.apps.Activations()[0].argument, L"FromTessaviewService");

  laptop.sessions.FinishSetup();
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
}

TEST(ProcessName, IsTheFileNameOfTheWindowsProgram) {
  RunningLaptop laptop;
  const auto ask = [&](std::uint64_t handle) {
    ForgetTheStory(laptop);
    laptop.ui.Send(L"GETPROCESSNAME", {.handle = handle});
    return LastTold(laptop);
  };
  const auto windowOf = [&](const std::wstring& program) {
    return static_cast<std::uint64_t>(laptop.desktop.Open({.program = program}));
  };
  for (const auto& [program, name] : {std::pair(L"C:\\Program Files\\My.App.v2\\Tool.Kit.exe", L"Tool.Kit"),
                                      {L"C:\\Program.Files\\noextension", L"noextension"},
                                      {L"D:\\\u4E2D\u6587 \u00C4.exe", L"\u4E2D\u6587 \u00C4"},
                                      {L"C:\\.exe", L""}}) {
    EXPECT_EQ(ask(windowOf(program)), L"PROCESSNAME=" + std::wstring(name));
  }
  EXPECT_EQ(ask(windowOf(L"C:\\" + std::wstring(400, L'n') + L".exe")), L"PROCESSNAME=" + std::wstring(247, L'n'));

  const auto secret = windowOf(L"C:\\Windows\\secret.exe");
  laptop.processes.Protect(laptop.processes.IdOf(L"C:\\Windows\\secret.exe"));
  const auto own = static_cast<std::uint64_t>(laptop.window.Handle());
  for (const auto untold : {secret, own, std::uint64_t{0}, ~std::uint64_t{0}}) EXPECT_EQ(ask(untold), L"PROCESSNAME=");
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
  laptop.files.AddProgram(laptop.files.ownProgram, {65535, 10, 200, 9});
  for (const auto* const text : {L"VERSION=2.0.11.0", L"VERSION=", L"UI VERSION=7"}) {
    ForgetTheStory(laptop);
    laptop.ui.Send(text);
    EXPECT_EQ(laptop.ui.Received(), Texts{L"VERSION=65535.10.200.9"});
    EXPECT_TRUE(gUIVersionReported());
  }
  laptop.faults.Fail<&os::ReadFileVersion>();
  laptop.ui.Send(L"VERSION=1");
  EXPECT_EQ(LastTold(laptop), L"VERSION=0.0.0.0");
}

}  // namespace
