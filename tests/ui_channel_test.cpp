#include "uilink/ui_channel.h"

#include "os/threads.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;
using sim::Ui;

using Sender = std::uint32_t (*)(const UiMessage&);
struct Named {
  const char* name;
  Sender send;
  bool hasTimeout;
};
constexpr Named kSenders[] = {{"blocking", SendUiText, false}, {"with time-out", SendUiTextTimeout, true}};

TEST(UiChannel, TheWindowsThatAreOpenDecideWhoGetsAText) {
  using Case = std::tuple<bool, bool, const wchar_t*, std::uint32_t, const wchar_t*, const wchar_t*>;
  for (const auto& [main, guide, text, result, receiver, timeoutsReceiver] :
       {Case{true, false, L"OPENMASK", 1, Ui::kMainClass, Ui::kMainClass},
        {true, true, L"POWERON", 0, nullptr, nullptr},
        {false, true, L"POWERON", 1, Ui::kGuideClass, Ui::kGuideClass},
        {false, true, L"POWEROFF", 1, Ui::kGuideClass, Ui::kGuideClass},
        {false, true, L"UACENTRY", 1, nullptr, Ui::kGuideClass},
        {false, true, L"OPENMASK", 1, nullptr, nullptr},
        {false, true, L"poweron", 1, nullptr, nullptr},
        {false, false, L"POWERON", 0, nullptr, nullptr}}) {
    for (const auto& sender : kSenders) {
      SCOPED_TRACE(testing::Message() << text << ", main " << main << ", guide " << guide << ", " << sender.name);
      Laptop laptop;
      laptop.ui.OpenVideo();  // never a receiver
      if (main) laptop.ui.Start();
      if (guide) laptop.ui.OpenGuide();
      EXPECT_EQ(sender.send({.text = text}), result);
      const auto* expected = sender.hasTimeout ? timeoutsReceiver : receiver;
      ASSERT_EQ(laptop.ui.ReceivedRecords().size(), expected == nullptr ? 0u : 1u);
      if (expected != nullptr) EXPECT_EQ(laptop.ui.ReceivedRecords()[0].windowClass, expected);
    }
  }
}

TEST(UiChannel, EveryTextTravelsInAWholeRecordOfKind102) {
  Laptop laptop({.uiRunning = true});
  for (const auto& text : {std::wstring(), std::wstring(259, L'\u00E4')}) {
    for (const auto& sender : kSenders) {
      laptop.ui.ForgetReceived();
      EXPECT_EQ(sender.send({.text = text, .point = {-5, 6}}), 1u);
      ASSERT_EQ(laptop.ui.ReceivedRecords().size(), 1u);
      EXPECT_EQ(laptop.ui.ReceivedRecords()[0].kind, 102u);
      EXPECT_EQ(laptop.ui.ReceivedRecords()[0].bytes.size(), 552u);
      EXPECT_EQ(laptop.ui.ReceivedTexts().at(0).text, text);
      EXPECT_EQ(laptop.ui.ReceivedTexts().at(0).point, (os::Point{-5, 6}));
    }
  }
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
  using Case = std::tuple<const Named&, std::uint32_t, std::uint32_t, bool>;
  for (const auto& [sender, busyMs, returnsAfterMs, taken] : {Case{kSenders[0], 60, 60, true},
                                                              {kSenders[0], 45'000, 45'000, true},
                                                              {kSenders[1], 60, 60, true},
                                                              Case{kSenders[1], 101, 100, false},
                                                              {kSenders[1], 45'000, 100, false}}) {
    SCOPED_TRACE(testing::Message() << sender.name << ", busy for " << busyMs << " ms");
    Laptop laptop({.uiRunning = true});
    const auto start = laptop.NowMs();
    laptop.ui.Busy(busyMs);
    const SendingThread thread(laptop, sender.send);
    laptop.Settle();
    EXPECT_EQ(thread.returnedAt, start + returnsAfterMs);
    EXPECT_EQ(thread.result, 1u);
    EXPECT_EQ(laptop.ui.Received(), taken ? Texts{L"POWERON"} : Texts{});
  }
}

}  // namespace
