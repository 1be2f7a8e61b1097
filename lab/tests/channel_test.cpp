// The text channel between the UI and the controller.
#include <future>

#include "tests/lab_test.h"

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

  Happens(L"beside the guide comes the main window: it is told nothing, nor is the guide");
  ASSERT_TRUE(laptop.ui.Start());
  Controller::PressF6(1, kF6PanelOff);
  ASSERT_TRUE(SendCommand(L"BLGET"));
  ASSERT_TRUE(laptop.WaitForController());
  ASSERT_TRUE(StandInUi::Send(L"THE END") && StandInUi::Send(L"THE END", {}, kUiGuideClass));
  ASSERT_TRUE(laptop.uiTalk.WaitFor(L"sent THE END") && laptop.uiTalk.WaitFor(L"guide sent THE END"));
  for (const auto& line : UiTalk()) EXPECT_EQ(line.find(L"received"), std::wstring::npos);
}

TEST_F(Channel, AHungUiHoldsUpOnlyWhoMustHaveItsAnswer) {
  StartController();
  ASSERT_TRUE(StandInUi::Hang());
  ASSERT_TRUE(SendCommand(L"VERSION=1.2.3.4")) << "its answer gives up";
  ASSERT_TRUE(laptop.WaitForController()) << "and what comes next is served";

  auto asked = std::async(std::launch::async, [] { return SendCommand(L"BLGET"); });
  EXPECT_TRUE(Traced(L"Receivedata from UI = BLGET"));
  StandInUi::Wake();
  EXPECT_TRUE(asked.get());
  EXPECT_TRUE(UiIsTold(L"BLSET 45"));
  Happens(L"the UI answers again");
  ASSERT_TRUE(SendCommand(L"VERSION=1.2.3.4"));
  EXPECT_TRUE(UiIsTold(L"VERSION=0.1.0.0"));
}

/// Any record at all.
bool SendRecord(std::uint64_t kind, const std::vector<std::uint8_t>& record) {
  COPYDATASTRUCT data{0, static_cast<DWORD>(record.size()), const_cast<std::uint8_t*>(record.data())};
  return Deliver(Controller::Window(), WM_COPYDATA, static_cast<WPARAM>(kind), reinterpret_cast<LPARAM>(&data));
}

TEST_F(Channel, RecordsOfAWrongSizeAreDropped) {
  StartController();
  Happens(L"records of all kinds come");
  for (const std::uint64_t kind : {0, 101, 102, 104, 105}) {
    for (const std::size_t size : {0, 1, 10, 551, 553, 1559, 1561, 70000}) {
      std::vector<std::uint8_t> record{'B', 0, 'L', 0, 'G', 0, 'E', 0, 'T', 0};  // would be answered
      record.resize(size);
      ASSERT_TRUE(SendRecord(kind, record)) << "kind " << kind << ", " << size << " bytes";
    }
  }
  ASSERT_TRUE(SendCommand(std::wstring(259, L'x'))) << "the longest text";
  ASSERT_TRUE(SendRecord(102, std::vector<std::uint8_t>(552, 0xFF))) << "a text without an end";
  ASSERT_TRUE(SendCommand(L"BLGET"));
  EXPECT_EQ(UiWords(L"BLSET", 1), std::vector<std::wstring>{L"BLSET"}) << "the one answer";
}

TEST_F(Channel, TenThousandCommandsLeaveNothingBehind) {
  constexpr int kRounds = 2000, kWarmUp = 20;
  constexpr std::uint32_t kSlack = 10;  // handles that Windows' own threads come and go with
  StartController();
  std::uint32_t handles = 0;
  const auto own = reinterpret_cast<std::uintptr_t>(Controller::Window());
  for (int round = 0; round < kRounds; round++) {
    if (round == kWarmUp) handles = laptop.controller.HandleCount();
    ASSERT_TRUE(SendCommand(L"BLGET"));
    ASSERT_TRUE(SendCommand(L"BLSET", {.handle = static_cast<std::uint64_t>(round % 101)}));
    ASSERT_TRUE(SendCommand(L"VERSION=1.2.3.4"));
    ASSERT_TRUE(SendCommand(L"GETPROCESSNAME", {.handle = own}));
    for (const auto* change : {L"SETTOPMOST", L"APPNAVISHOW", L"VIEWCLOSE"}) {
      ASSERT_TRUE(SendCommand(change, {.handle = own | 0xDEAD'BEEFULL << 32}));
    }
    ASSERT_TRUE(SendCommand(L"NOTACOMMAND"));
  }
  ASSERT_GT(handles, 0u);
  EXPECT_LE(laptop.controller.HandleCount(), handles + kSlack);
  EXPECT_TRUE(UiIsTold(L"PROCESSNAME=")) << "its own window counts as none";
  EXPECT_EQ(GetWindowLongW(Controller::Window(), GWL_STYLE) & WS_VISIBLE, 0);
}

}  // namespace
