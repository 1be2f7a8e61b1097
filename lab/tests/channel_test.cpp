// The text channel between the UI and the controller.
#include <future>

#include "tests/lab_test.h"
#include "ui/ui_message.h"

namespace {

using namespace lab;

using Channel = LabTest;

TEST_F(Channel, TheGuideAloneGetsThePowerTextsAndNothingBesideIt) {
  StartController();
  laptop.ui.End();
  StandInUi guide;
  ASSERT_TRUE(guide.Start(kUiGuideClass));
  ASSERT_TRUE(SendCommand(L"BLGET"));
  Controller::PressF6(1, kF6PanelOff);
  EXPECT_TRUE(laptop.uiTalk.WaitFor(L"guide received POWEROFF"));
  EXPECT_FALSE(laptop.uiTalk.Contains(L"guide received BLSET*"));

  // Beside the guide the main window is told nothing, nor is the guide.
  ASSERT_TRUE(laptop.ui.Start());
  const auto told = laptop.uiTalk.Mark();
  Controller::PressF6(1, kF6PanelOff);
  ASSERT_TRUE(SendCommand(L"BLGET"));
  ASSERT_TRUE(laptop.WaitForController());
  ASSERT_TRUE(StandInUi::Send(L"THE END") && StandInUi::Send(L"THE END", 0, kUiGuideClass));
  ASSERT_TRUE(laptop.uiTalk.WaitFor(L"sent THE END", told) && laptop.uiTalk.WaitFor(L"guide sent THE END", told));
  EXPECT_FALSE(laptop.uiTalk.Contains(L"received *", told) || laptop.uiTalk.Contains(L"guide received *", told));
}

TEST_F(Channel, AHungUiHoldsUpOnlyWhoMustHaveItsAnswer) {
  StartController();
  ASSERT_TRUE(StandInUi::Hang());
  ASSERT_TRUE(SendCommand(L"VERSION=1.2.3.4")) << "its answer gives up";
  ASSERT_TRUE(laptop.WaitForController()) << "and what comes next is served";

  auto told = laptop.uiTalk.Mark();
  auto asked = std::async(std::launch::async, [] { return SendCommand(L"BLGET"); });
  EXPECT_TRUE(laptop.trace.WaitFor(L"Receivedata from UI = BLGET"));
  StandInUi::Wake();
  EXPECT_TRUE(asked.get());
  EXPECT_TRUE(UiIsTold(L"BLSET 45", told));
  told = laptop.uiTalk.Mark();
  ASSERT_TRUE(SendCommand(L"VERSION=1.2.3.4"));
  EXPECT_TRUE(UiIsTold(L"VERSION=0.1.0.0", told));
}

TEST_F(Channel, RecordsOfAWrongSizeAreDropped) {
  StartController();
  const auto told = laptop.uiTalk.Mark();
  std::vector<std::uint8_t> blGet;  // as far as the text goes, a command that would be answered
  for (const char letter : std::string("BLGET")) blGet.insert(blGet.end(), {static_cast<std::uint8_t>(letter), 0});
  for (const std::uint64_t kind : {0, 101, 102, 104, 105}) {
    for (const std::size_t size : {0, 1, 10, 551, 553, 1559, 1561, 70000}) {
      auto record = blGet;
      record.resize(size);
      ASSERT_TRUE(SendRecord(kind, record)) << "kind " << kind << ", " << size << " bytes";
    }
  }
  ASSERT_TRUE(SendCommand(std::wstring(259, L'x'))) << "the longest text";
  ASSERT_TRUE(SendRecord(102, std::vector<std::uint8_t>(552, 0xFF))) << "a text without an end";
  ASSERT_TRUE(SendCommand(L"BLGET"));
  EXPECT_TRUE(UiIsTold(L"BLSET 45", told));
  EXPECT_EQ(laptop.uiTalk.Since(told), std::vector<std::wstring>{L"received BLSET 45"}) << "the one answer";
}

TEST_F(Channel, TenThousandCommandsLeaveNothingBehind) {
  constexpr int kRounds = 2000, kWarmUp = 20;
  constexpr std::uint32_t kSlack = 10;  // handles that Windows' own threads come and go with
  StartController();
  std::uint32_t handles = 0;
  for (int round = 0; round < kRounds; round++) {
    if (round == kWarmUp) handles = laptop.controller.HandleCount();
    ASSERT_TRUE(SendCommand(L"BLGET"));
    ASSERT_TRUE(SendCommand(L"BLSET", static_cast<std::uint64_t>(round % 101)));
    ASSERT_TRUE(SendCommand(L"VERSION=1.2.3.4"));
    ASSERT_TRUE(SendCommand(L"GETPROCESSNAME", reinterpret_cast<std::uintptr_t>(Controller::Window())));
    ASSERT_TRUE(SendCommand(L"NOTACOMMAND"));
  }
  ASSERT_GT(handles, 0u);
  EXPECT_LE(laptop.controller.HandleCount(), handles + kSlack);
  EXPECT_TRUE(UiIsTold(L"PROCESSNAME=TessaviewService"));
}

}  // namespace
