#include "uilink/ui_channel.h"

#include <gtest/gtest.h>

#include "os/threads.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using sim::Laptop;
using sim::Ui;
using support::RunningLaptop;
using support::Texts;

using Sender = std::uint32_t (*)(const UiMessage&);
struct Named {
  const char* name;
  Sender send;
  bool hasTimeout;
};
constexpr Named kSenders[] = {{"blocking", SendUiText, false}, {"with time-out", SendUiTextTimeout, true}};

TEST(UiChannel, TheWindowsThatAreOpenDecideWhoGetsAText) {
  struct Case {
    bool main, guide;
    const wchar_t* text;
    std::uint32_t result;
    const wchar_t* receiver;          // of the blocking sender; null when nobody gets the text
    const wchar_t* timeoutsReceiver;  // of the sender with time-out
  };
  const Case cases[] = {
      {true, false, L"POWERON", 1, Ui::kMainClass, Ui::kMainClass},
      {true, false, L"OPENMASK", 1, Ui::kMainClass, Ui::kMainClass},
      {true, false, L"UACENTRY", 1, Ui::kMainClass, Ui::kMainClass},
      {true, true, L"POWERON", 0, nullptr, nullptr},
      {true, true, L"OPENMASK", 0, nullptr, nullptr},
      {true, true, L"UACEXIT", 0, nullptr, nullptr},
      {false, true, L"POWERON", 1, Ui::kGuideClass, Ui::kGuideClass},
      {false, true, L"POWEROFF", 1, Ui::kGuideClass, Ui::kGuideClass},
      {false, true, L"UACENTRY", 1, nullptr, Ui::kGuideClass},
      {false, true, L"UACEXIT", 1, nullptr, Ui::kGuideClass},
      {false, true, L"OPENMASK", 1, nullptr, nullptr},
      {false, true, L"poweron", 1, nullptr, nullptr},
      {false, true, L"POWERON ", 1, nullptr, nullptr},
      {false, true, L"POWER", 1, nullptr, nullptr},
      {false, true, L"", 1, nullptr, nullptr},
      {false, false, L"POWERON", 0, nullptr, nullptr},
      {false, false, L"UACENTRY", 0, nullptr, nullptr},
  };
  for (const auto& c : cases) {
    for (const auto& sender : kSenders) {
      SCOPED_TRACE(testing::Message() << c.text << ", main " << c.main << ", guide " << c.guide << ", " << sender.name);
      Laptop laptop;
      laptop.ui.OpenVideo();  // never a receiver
      if (c.main) laptop.ui.Start();
      if (c.guide) laptop.ui.OpenGuide();
      EXPECT_EQ(sender.send({.text = c.text}), c.result);
      const auto* receiver = sender.hasTimeout ? c.timeoutsReceiver : c.receiver;
      ASSERT_EQ(laptop.ui.ReceivedRecords().size(), receiver == nullptr ? 0u : 1u);
      if (receiver != nullptr) EXPECT_EQ(laptop.ui.ReceivedRecords()[0].windowClass, receiver);
    }
  }
}

TEST(UiChannel, EveryTextTravelsInAWholeRecordOfKind102) {
  Laptop laptop({.uiRunning = true});
  const std::wstring longest(259, L'\u00E4');
  for (const auto& text : {std::wstring(), std::wstring(L"OPENMASK"), longest}) {
    for (const auto& sender : kSenders) {
      laptop.ui.ForgetReceived();
      EXPECT_EQ(sender.send({.text = text, .handle = 0xFFFF'FFFF, .rect = {1, 2, 3, 4}, .point = {-5, 6}}), 1u);
      ASSERT_EQ(laptop.ui.ReceivedRecords().size(), 1u);
      EXPECT_EQ(laptop.ui.ReceivedRecords()[0].kind, 102u);
      EXPECT_EQ(laptop.ui.ReceivedRecords()[0].bytes.size(), 552u);
      const auto record = laptop.ui.ReceivedTexts().at(0);
      EXPECT_EQ(record.text, text);
      EXPECT_EQ(record.Percent(), -1);
      EXPECT_EQ(record.rect, (os::Rect{1, 2, 3, 4}));
      EXPECT_EQ(record.point, (os::Point{-5, 6}));
    }
  }
}

TEST(UiChannel, TheWindowsAreLookedUpAfreshForEachText) {
  Laptop laptop({.uiRunning = true});
  EXPECT_EQ(SendUiText({.text = L"POWERON"}), 1u);
  laptop.ui.Die();
  EXPECT_EQ(SendUiText({.text = L"POWERON"}), 0u);
  laptop.ui.Start();
  EXPECT_EQ(SendUiText({.text = L"POWEROFF"}), 1u);
  laptop.ui.OpenGuide();
  EXPECT_EQ(SendUiText({.text = L"POWERON"}), 0u);
  laptop.ui.CloseGuide();
  EXPECT_EQ(SendUiTextTimeout({.text = L"CLOSEMASK"}), 1u);
  EXPECT_EQ(laptop.ui.Received(), (Texts{L"POWERON", L"POWEROFF", L"CLOSEMASK"}));
}

/// Sends from a thread of the controller's, as a blocked test could not arrange anything any more.
struct SendingThread {
  explicit SendingThread(Laptop& laptop, Sender send) {
    os::StartThread(L"sender", [this, &laptop, send] {
      result = send({.text = L"POWERON"});
      returnedAt = laptop.NowMs();
    });
  }
  std::optional<std::uint64_t> returnedAt;
  std::uint32_t result = 99;
};

TEST(UiChannel, ABusyUiIsWaitedForAsLongAsTheSenderMay) {
  struct Case {
    const Named& sender;
    std::uint32_t busyMs, returnsAfterMs;
    bool taken;
  };
  for (const auto& c :
       {Case{kSenders[0], 60, 60, true}, Case{kSenders[0], 45'000, 45'000, true}, Case{kSenders[1], 60, 60, true},
        Case{kSenders[1], 101, 100, false}, Case{kSenders[1], 45'000, 100, false}}) {
    SCOPED_TRACE(testing::Message() << c.sender.name << ", busy for " << c.busyMs << " ms");
    Laptop laptop({.uiRunning = true});
    const auto start = laptop.NowMs();
    laptop.ui.Busy(c.busyMs);
    const SendingThread thread(laptop, c.sender.send);
    laptop.Settle();
    EXPECT_EQ(thread.returnedAt, start + c.returnsAfterMs);
    EXPECT_EQ(thread.result, 1u);
    EXPECT_EQ(laptop.ui.Received(), c.taken ? Texts{L"POWERON"} : Texts{});
  }
}

TEST(UiChannel, AHungUiBlocksTheBlockingSenderOnly) {
  Laptop laptop({.uiRunning = true});
  laptop.ui.Hang();
  const auto start = laptop.NowMs();
  const SendingThread patient(laptop, SendUiTextTimeout);
  const SendingThread blocked(laptop, SendUiText);
  laptop.Advance(300'000);
  EXPECT_EQ(patient.returnedAt, start) << "a window the system holds for hung is not waited for";
  EXPECT_EQ(patient.result, 1u);
  EXPECT_FALSE(blocked.returnedAt);
  EXPECT_TRUE(laptop.ui.Received().empty());

  laptop.ui.Recover();
  EXPECT_EQ(blocked.returnedAt, start + 300'000);
  EXPECT_EQ(laptop.ui.Received(), Texts{L"POWERON"});
}

TEST(UiChannel, AHungUiHoldsTheControllerUpUnlessItOnlyAskedForTheVersion) {
  RunningLaptop laptop;
  laptop.ui.Hang();
  laptop.ui.Send(L"VERSION=1.0");
  laptop.ui.Send(L"BLOCKACTIONMENU");
  EXPECT_TRUE(laptop.trace.Contains(L"Receivedata from UI = BLOCKACTIONMENU \n")) << "the main thread goes on";

  laptop.ui.Send(L"BLGET");
  laptop.ui.Send(L"DIED");
  EXPECT_FALSE(laptop.trace.Contains(L"Receivedata from UI = DIED \n")) << "the main thread waits for the UI";
  laptop.ui.Recover();
  EXPECT_EQ(laptop.ui.Received(), Texts{L"BLSET"});
  EXPECT_TRUE(laptop.trace.Contains(L"Receivedata from UI = DIED \n")) << "nothing sent meanwhile is lost";
}

}  // namespace
