// The text channel between the UI and the controller.
#include <future>

#include "tests/lab_test.h"

namespace {

using namespace lab;

using Channel = LabTest;

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
