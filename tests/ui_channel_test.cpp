#include "uilink/channel/ui_channel.h"

#include "os/threads.h"
#include "tests/support.h"

namespace {

using namespace tessaview;
using namespace support;
using sim::Ui;

constexpr UiText kPatient{L"PATIENT", Guide::Misses, Wait::Patient, Keep::Always, ""};
constexpr UiText kBrief{L"BRIEF", Guide::Misses, Wait::Briefly, Keep::Always, ""};

TEST(UiChannel, TheWindowsThatAreOpenDecideWhoGetsAText) {
  struct Case {
    bool main, guide;
    UiText text;
    std::uint32_t result;
    const wchar_t* receiver;
  };
  for (const auto& c :
       {Case{.main = true, .guide = false, .text = texts::kOpenMask, .result = 1, .receiver = Ui::kMainClass},
        {.main = true, .guide = true, .text = texts::kPowerOn, .result = 0, .receiver = nullptr},
        {.main = false, .guide = true, .text = texts::kPowerOn, .result = 1, .receiver = Ui::kGuideClass},
        {.main = false, .guide = true, .text = texts::kPowerOff, .result = 1, .receiver = Ui::kGuideClass},
        {.main = false, .guide = true, .text = texts::kUacEntry, .result = 1, .receiver = Ui::kGuideClass},
        {.main = false, .guide = true, .text = texts::kOpenMask, .result = 1, .receiver = nullptr},
        {.main = false, .guide = false, .text = texts::kPowerOn, .result = 0, .receiver = nullptr}}) {
    SCOPED_TRACE(testing::Message() << c.text.name << ", main " << c.main << ", guide " << c.guide);
    Laptop laptop;
    laptop.ui.OpenVideo();  // never a receiver
    if (c.main) laptop.ui.Start();
    if (c.guide) laptop.ui.OpenGuide();
    EXPECT_EQ(TellUi(c.text), c.result);
    ASSERT_EQ(laptop.ui.ReceivedRecords().size(), c.receiver == nullptr ? 0u : 1u);
    if (c.receiver != nullptr) EXPECT_EQ(laptop.ui.ReceivedRecords()[0].windowClass, c.receiver);
  }
}

TEST(UiChannel, EveryTextTravelsInAWholeRecordOfKind102) {
  Laptop laptop({.uiRunning = true});
  for (const auto& rest : {std::wstring(), std::wstring(252, L'\u00E4')}) {
    for (const auto& text : {kPatient, kBrief}) {
      laptop.ui.ForgetReceived();
      EXPECT_EQ(TellUi(text, {.text = rest, .point = {-5, 6}}), 1u);
      ASSERT_EQ(laptop.ui.ReceivedRecords().size(), 1u);
      EXPECT_EQ(laptop.ui.ReceivedRecords()[0].kind, 102u);
      EXPECT_EQ(laptop.ui.ReceivedRecords()[0].bytes.size(), 552u);
      EXPECT_EQ(laptop.ui.ReceivedTexts().at(0).text, text.name + rest);
      EXPECT_EQ(laptop.ui.ReceivedTexts().at(0).point, (os::Point{-5, 6}));
    }
  }
}

/// Sends from a thread of the controller's, as a blocked test could not arrange anything any more.
struct SendingThread {
  SendingThread(Laptop& laptop, const UiText& text) {
    os::StartThread(L"sender", [this, &laptop, text] {
      result = TellUi(text);
      returnedAt = laptop.NowMs();
    });
  }
  std::optional<std::uint64_t> returnedAt;
  std::uint32_t result = 99;
};

TEST(UiChannel, ABusyUiIsWaitedForAsLongAsTheSenderMay) {
  using Case = std::tuple<UiText, std::uint32_t, std::uint32_t, bool>;
  for (const auto& [text, busyMs, returnsAfterMs, taken] : {Case{kPatient, 60, 60, true},
                                                            {kPatient, 45'000, 45'000, true},
                                                            {kBrief, 60, 60, true},
                                                            Case{kBrief, 101, 100, false},
                                                            {kBrief, 45'000, 100, false}}) {
    SCOPED_TRACE(testing::Message() << text.name << ", busy for " << busyMs << " ms");
    Laptop laptop({.uiRunning = true});
    const auto start = laptop.NowMs();
    laptop.ui.Busy(busyMs);
    const SendingThread thread(laptop, text);
    laptop.Settle();
    EXPECT_EQ(thread.returnedAt, start + returnsAfterMs);
    EXPECT_EQ(thread.result, 1u);
    EXPECT_EQ(laptop.ui.Received(), taken ? Texts{text.name} : Texts{});
  }
}

}  // namespace
