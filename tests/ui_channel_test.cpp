#include "uilink/channel/ui_channel.h"

#include "os/threads.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;
using sim::Ui;

using Sender = std::uint32_t (*)(const UiMessage&);

TEST(UiChannel, TheWindowsThatAreOpenDecideWhoGetsAText) {
  struct Case {
    bool main = false, guide = false;
    const wchar_t* text = L"POWERON";
    std::uint32_t result = 1;
    const wchar_t *receiver = nullptr, *timeoutsReceiver = receiver;
  };
  for (const auto& each :
       {Case{.main = true, .text = L"OPENMASK", .receiver = Ui::kMainClass},
        Case{.main = true, .guide = true, .result = 0}, Case{.guide = true, .receiver = Ui::kGuideClass},
        Case{.guide = true, .text = L"POWEROFF", .receiver = Ui::kGuideClass},
        Case{.guide = true, .text = L"UACENTRY", .timeoutsReceiver = Ui::kGuideClass},
        Case{.guide = true, .text = L"UACEXIT", .timeoutsReceiver = Ui::kGuideClass},
        Case{.guide = true, .text = L"OPENMASK"}, Case{.guide = true, .text = L"poweron"}, Case{.result = 0}}) {
    for (const Sender send : {SendUiText, SendUiTextTimeout}) {
      SCOPED_TRACE(testing::Message() << each.text << ", main " << each.main << ", guide " << each.guide);
      Laptop laptop;
      laptop.ui.OpenVideo();  // never a receiver
      if (each.main) laptop.ui.Start();
      if (each.guide) laptop.ui.OpenGuide();
      EXPECT_EQ(send({.text = each.text}), each.result);
      const auto* expected = send == SendUiText ? each.receiver : each.timeoutsReceiver;
      ASSERT_EQ(laptop.ui.ReceivedRecords().size(), expected == nullptr ? 0u : 1u);
      if (expected != nullptr) EXPECT_EQ(laptop.ui.ReceivedRecords()[0].windowClass, expected);
      if (expected != nullptr) EXPECT_EQ(laptop.ui.ReceivedRecords()[0].kind, 102u);
    }
  }
}

TEST(UiChannel, ABusyUiIsWaitedForAsLongAsTheSenderMay) {
  struct Case {
    Sender send;
    std::uint32_t busyMs, heldUpMs = busyMs;
    bool isTaken = true;
  };
  for (const auto& each : {Case{.send = SendUiText, .busyMs = 45'000}, Case{.send = SendUiTextTimeout, .busyMs = 60},
                           Case{.send = SendUiTextTimeout, .busyMs = 101, .heldUpMs = 100, .isTaken = false}}) {
    SCOPED_TRACE(each.busyMs);
    Laptop laptop({.uiRunning = true});
    const auto start = laptop.NowMs();
    laptop.ui.Busy(each.busyMs);
    std::optional<std::uint64_t> returnedAt;
    // From a thread of the controller's, as a blocked test could not arrange anything any more.
    os::StartThread(L"sender", [&] {
      EXPECT_EQ(each.send({.text = L"POWERON"}), 1u);
      returnedAt = laptop.NowMs();
    });
    laptop.Settle();
    EXPECT_EQ(returnedAt, start + each.heldUpMs);
    EXPECT_EQ(laptop.ui.Received(), each.isTaken ? Texts{L"POWERON"} : Texts{});
  }
}

}  // namespace
