#include <atomic>

#include "core/resource_ids.h"
#include "tests/contract/heard.h"
#include "tests/contract/world.h"

namespace {

using MessageContract = contract::Contract;
using contract::Hear, contract::Heard, contract::HeardEvents, os::WindowHandle, world::kTitle;

constexpr std::uint32_t kCommand = 0x0111;  // WM_COMMAND

TEST_F(MessageContract, ABusyReceiverIsWaitedForOnlySoLongAndAGoneWindowTakesNothing) {
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
  world::CloseWindow();
  EXPECT_FALSE(os::PostToWindow(window, kCommand, 0, 0));
  EXPECT_TRUE(os::PostToWindow(WindowHandle::None, kCommand, 0, 0)) << "goes to the calling thread itself, and nowhere";
  for (const auto gone : {window, WindowHandle::None}) {
    os::SendCopyData(gone, 1, os::Bytes{1});  // returns
    EXPECT_FALSE(os::SendCopyDataTimeout(gone, 1, os::Bytes{1}, 10'000));
  }
}

// ---- The service window ----

WindowHandle gWindow;

/// The first timer comes twice, then another one; that ends the window, and the window's end the loop.
void OnTimer(std::uint64_t id) {
  Hear("timer", id);
  if (id == 5 && Heard().end()[-2] == Heard().back()) {
    os::StopTimer(gWindow, 5);
    os::StartTimer(gWindow, 6, 10);
  }
  constexpr std::size_t kTooMany = 20;  // a timer that does not stop
  if (id == 6 || Heard().size() > kTooMany) os::DestroyServiceWindow(gWindow);
}

TEST_F(MessageContract, TheLoopServesMessagesThenTimersUntilTheWindowEnds) {
  static auto events = HeardEvents();
  events.hotKeyMessage = os::RegisterMessage(L"Contract Hot-Key");
  events.touchPadStatusMessage = os::RegisterMessage(L"Contract Touch Pad");
  events.timer = OnTimer;
  events.destroy = [] { os::QuitMessageLoop(3); };
  EXPECT_EQ(os::RegisterMessage(L"contract HOT-KEY"), events.hotKeyMessage);
  EXPECT_NE(events.touchPadStatusMessage, events.hotKeyMessage);
  Heard().clear();
  world::Run([] {
    constexpr auto kService = L"ContractService";
    EXPECT_NE(os::CreateServiceWindow(kService, kTitle).error(), 0U) << "no such class";
    EXPECT_TRUE(os::RegisterServiceWindowClass({kService, 0, 0, 0}, events));
    EXPECT_EQ(os::RegisterServiceWindowClass({kService, 0, 0, 0}, events).error(), 1410U)
        << "ERROR_CLASS_ALREADY_EXISTS";
    gWindow = *os::CreateServiceWindow(kService, kTitle);
    EXPECT_EQ(os::FindTopWindow(kService, kTitle), gWindow);
    EXPECT_EQ(os::ProcessImagePath(os::WindowProcessId(gWindow)), os::OwnProgramPath());
    EXPECT_NE(os::ForegroundWindow(), gWindow) << "never shown";
    EXPECT_TRUE(os::AllowMessage(gWindow, os::kCopyDataMessage));
    os::RefreshWindow(gWindow);

    os::StartTimer(gWindow, 5, 60'000);
    os::StartTimer(gWindow, 5, 1);  // the same timer, started again
    os::PostToWindow(gWindow, events.hotKeyMessage, 0x6B, -1);
    os::PostToWindow(gWindow, events.touchPadStatusMessage, 1, 0);
    os::PostToWindow(gWindow, kCommand, 0x1'0068, 0);
    EXPECT_TRUE(Heard().empty()) << "posted messages wait for the loop";
    os::SendCopyData(gWindow, 9, os::Bytes{1, 2, 3});
    EXPECT_EQ(Heard().size(), 1U) << "a window's own thread is answered at once";

    EXPECT_EQ(os::RunMessageLoop(gWindow, 0), 3);
    EXPECT_FALSE(os::PostToWindow(gWindow, events.hotKeyMessage, 0, 0));
    EXPECT_EQ(os::FindTopWindow(kService), WindowHandle::None);
  });
  EXPECT_EQ(os::LoadResourceText(tessaview::kTitleText), L"TessaviewServiceTitle");
  EXPECT_EQ(os::LoadResourceText(9999), L"");
  EXPECT_EQ(Heard(), (std::vector<std::string>{"copyData 9 3", "hotKey 107 -1", "touchPad 1 0", "command 104",
                                               "timer 5", "timer 5", "timer 6"}));
}

}  // namespace
