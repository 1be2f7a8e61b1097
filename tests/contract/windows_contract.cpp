#include <atomic>

#include "core/resource_ids.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "os/files.h"
#include "os/messages.h"
#include "os/processes.h"
#include "os/service_window.h"
#include "os/threads.h"
#include "tests/contract/world.h"

namespace contract {
namespace {

using MessageContract = Contract;
using ServiceWindowContract = Contract;
using os::WindowHandle;
using world::kTitle, world::Told;

constexpr std::uint32_t kCommand = 0x0111;  // WM_COMMAND

TEST_F(MessageContract, AnotherProgramGetsWhatItIsSentInOrder) {
  const auto id = os::RegisterMessage(L"Contract Message");
  EXPECT_TRUE(id >= 0xC000 && id <= 0xFFFF);
  EXPECT_EQ(os::RegisterMessage(L"contract MESSAGE"), id);
  EXPECT_NE(os::RegisterMessage(L"Another Message"), id);
  const auto window = world::OpenWindow();
  const os::Bytes record{0, 1, 0, 255}, large(1008, 0x11);
  EXPECT_TRUE(os::PostToWindow(window, id, 0x1'0000'0001, -2));
  EXPECT_EQ(world::ToldToWindow(1), (std::vector<Told>{{id, 0x1'0000'0001, -2}}));
  os::SendCopyData(window, 7, record);
  os::SendCopyData(window, 0, {});
  EXPECT_TRUE(os::SendCopyDataTimeout(window, 8, large, 10'000)) << "taken, although it is answered with 0";
  EXPECT_TRUE(os::PostToWindow(window, id, 2, 3));
  EXPECT_EQ(world::ToldToWindow(5), (std::vector<Told>{{id, 0x1'0000'0001, -2},
                                                       {.kindOrMessage = 7, .record = record},
                                                       {.kindOrMessage = 0},
                                                       {.kindOrMessage = 8, .record = large},
                                                       {id, 2, 3}}));
}

TEST_F(MessageContract, ABusyReceiverIsWaitedForOnlySoLong) {
  const auto window = world::OpenWindow();
  world::Run([window] {
    std::atomic<bool> woken = false;
    world::Hang();
    EXPECT_FALSE(os::SendCopyDataTimeout(window, 1, os::Bytes{1}, 100));
    os::StartThread(L"waker", [&woken] {
      os::Sleep(50);
      woken = true;
      world::Wake();
    });
    os::SendCopyData(window, 2, os::Bytes{2});
    EXPECT_TRUE(woken) << "waited for, however long it takes";
    EXPECT_TRUE(os::SendCopyDataTimeout(window, 3, os::Bytes{3}, 10'000)) << "it is well again";
  });
  EXPECT_EQ(world::ToldToWindow(2).back(), (Told{.kindOrMessage = 3, .record = {3}}));
}

TEST_F(MessageContract, AGoneWindowTakesNothing) {
  const auto gone = world::OpenWindow();
  world::CloseWindow();
  EXPECT_FALSE(os::PostToWindow(gone, kCommand, 0, 0));
  EXPECT_TRUE(os::PostToWindow(WindowHandle::None, kCommand, 0, 0)) << "goes to the calling thread itself, and nowhere";
  for (const auto window : {gone, WindowHandle::None}) {
    os::SendCopyData(window, 1, os::Bytes{1});  // returns
    EXPECT_FALSE(os::SendCopyDataTimeout(window, 1, os::Bytes{1}, 10'000));
  }
}

// ---- The service window ----

std::vector<std::string> gHeard;  // by the service window, in order
WindowHandle gWindow;

void Hear(const char* what, std::uint64_t a, std::int64_t b = 0) {
  gHeard.push_back(what + (" " + std::to_string(a)) + " " + std::to_string(b));
}

/// The first timer comes twice, then another one; that ends the window, and the window's end the loop.
void OnTimer(std::uint64_t id) {
  Hear("timer", id);
  if (id == 5 && gHeard.end()[-2] == gHeard.back()) {
    os::StopTimer(gWindow, 5);
    os::StartTimer(gWindow, 6, 10);
  }
  constexpr std::size_t kTooMany = 20;  // a timer that does not stop
  if (id == 6 || gHeard.size() > kTooMany) os::DestroyServiceWindow(gWindow);
}

os::ServiceWindowEvents Events() {
  return {.hotKeyMessage = os::RegisterMessage(L"Contract Hot-Key"),
          .touchPadStatusMessage = os::RegisterMessage(L"Contract Touch Pad"),
          .hotKey = [](auto wParam, auto lParam) { Hear("hotKey", wParam, lParam); },
          .touchPadStatus = [](auto wParam, auto lParam) { Hear("touchPad", wParam, lParam); },
          .displayChange = [] {},
          .copyData = [](auto kind, auto record) { Hear("copyData", kind, static_cast<std::int64_t>(record.size())); },
          .rawInput = [](const auto&) {},
          .command = [](auto id) { Hear("command", id); },
          .timer = OnTimer,
          .powerBroadcast = [](auto) {},
          .powerSetting = [](auto, auto) {},
          .sessionChange = [](auto) {},
          .queryEndSession = [](auto) {},
          .destroy =
              [] {
                Hear("destroy", 0);
                os::QuitMessageLoop(3);
              }};
}

TEST_F(ServiceWindowContract, TheLoopServesMessagesThenTimersUntilTheWindowEnds) {
  static const auto events = Events();
  gHeard.clear();
  world::Run([] {
    constexpr auto kService = L"ContractService";
    EXPECT_EQ(os::CreateServiceWindow(kService, kTitle), WindowHandle::None) << "no such class";
    EXPECT_TRUE(os::RegisterServiceWindowClass({kService, 0, 0, 0}, events));
    EXPECT_EQ(os::RegisterServiceWindowClass({kService, 0, 0, 0}, events).error(), 1410U)
        << "ERROR_CLASS_ALREADY_EXISTS";
    gWindow = os::CreateServiceWindow(kService, kTitle);
    ASSERT_NE(gWindow, WindowHandle::None);
    EXPECT_EQ(os::FindTopWindow(kService, kTitle), gWindow);
    EXPECT_EQ(os::ProcessImagePath(os::WindowProcessId(gWindow)), os::OwnProgramPath());
    EXPECT_NE(os::ForegroundWindow(), gWindow) << "never shown";
    os::AllowMessage(gWindow, os::kCopyDataMessage);
    os::RefreshWindow(gWindow);

    os::StartTimer(gWindow, 5, 60'000);
    os::StartTimer(gWindow, 5, 1);  // the same timer, started again
    os::PostToWindow(gWindow, events.hotKeyMessage, 0x6B, -1);
    os::PostToWindow(gWindow, events.touchPadStatusMessage, 1, 0);
    os::PostToWindow(gWindow, kCommand, 0x1'0068, 0);
    EXPECT_TRUE(gHeard.empty()) << "posted messages wait for the loop";
    os::SendCopyData(gWindow, 9, os::Bytes{1, 2, 3});
    EXPECT_EQ(gHeard.size(), 1U) << "a window's own thread is answered at once";

    EXPECT_EQ(os::RunMessageLoop(gWindow, 0), 3);
    EXPECT_FALSE(os::PostToWindow(gWindow, events.hotKeyMessage, 0, 0));
    EXPECT_EQ(os::FindTopWindow(kService), WindowHandle::None);
  });
  EXPECT_EQ(os::LoadResourceText(tessaview::kTitleText), L"TessaviewServiceTitle");
  EXPECT_EQ(os::LoadResourceText(9999), L"");
  EXPECT_EQ(gHeard, (std::vector<std::string>{"copyData 9 3", "hotKey 107 -1", "touchPad 1 0", "command 104 0",
                                              "timer 5 0", "timer 5 0", "timer 6 0", "destroy 0 0"}));
}

}  // namespace
}  // namespace contract
