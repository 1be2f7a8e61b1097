#include "uilink/channel/ui_channel.h"

#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;
using sim::Ui;

TEST(UiChannel, TheWindowsThatAreOpenDecideWhoGetsAText) {
  struct Case {
    bool main = false, guide = false;
    UiText text = texts::kPowerOn;
    std::uint32_t result = 1;
    const wchar_t* receiver = nullptr;
  };
  for (const auto& each :
       {Case{.main = true, .text = texts::kOpenMask, .receiver = Ui::kMainClass},
        Case{.main = true, .guide = true, .result = 0}, Case{.guide = true, .receiver = Ui::kGuideClass},
        Case{.guide = true, .text = texts::kPowerOff, .receiver = Ui::kGuideClass},
        Case{.guide = true, .text = texts::kUacEntry, .receiver = Ui::kGuideClass},
        Case{.guide = true, .text = texts::kUacExit, .receiver = Ui::kGuideClass},
        Case{.guide = true, .text = texts::kOpenMask}, Case{.result = 0}}) {
    Laptop laptop;
    laptop.ui.OpenVideo();  // never a receiver
    if (each.main) laptop.ui.Start();
    if (each.guide) laptop.ui.OpenGuide();
    EXPECT_EQ(TellUi(each.text), each.result);
    ASSERT_EQ(laptop.ui.ReceivedRecords().size(), each.receiver == nullptr ? 0u : 1u);
    if (each.receiver == nullptr) continue;
    EXPECT_EQ(laptop.ui.ReceivedRecords()[0].windowClass, each.receiver);
    EXPECT_EQ(laptop.ui.ReceivedRecords()[0].kind, 102u);
  }
}

TEST(UiChannel, ABusyUiIsWaitedForAsLongAsTheTextsRowSays) {
  struct Case {
    UiText text;
    std::uint32_t busyMs, heldUpMs = busyMs;
    bool isTaken = true;
  };
  for (const auto& each :
       {Case{.text = texts::kOpenMask, .busyMs = 45'000}, Case{.text = texts::kUacExit, .busyMs = 60},
        Case{.text = texts::kUacExit, .busyMs = 101, .heldUpMs = 100, .isTaken = false},
        Case{.text = texts::kGetTouchPad, .busyMs = 101, .heldUpMs = 100, .isTaken = false}}) {
    Laptop laptop({.uiRunning = true});
    const auto start = laptop.NowMs();
    laptop.ui.Busy(each.busyMs);
    std::optional<std::uint64_t> returnedAt;
    // From a thread of the controller's, as a blocked test could not arrange anything any more.
    os::StartThread(L"sender", [&] {
      EXPECT_EQ(TellUi(each.text), 1u);
      returnedAt = laptop.NowMs();
    });
    laptop.Settle();
    EXPECT_EQ(returnedAt, start + each.heldUpMs);
    EXPECT_EQ(laptop.ui.Received(), each.isTaken ? Texts{each.text.name} : Texts{});
  }
}

}  // namespace
