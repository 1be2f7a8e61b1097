// The tests of the controller on the laptop, and the day that some of them tell.
//   lab_tests          all tests, or those that GoogleTest's options choose
//   lab_tests --day    the day, told as it happens
//   lab_tests --keep   its beginning, told as it happens; then the laptop stays up
#include <gtest/gtest.h>

#include <string_view>

#include "day/telling.h"
#include "tests/lab_test.h"

namespace {

using namespace lab;

/// The laptop to play with, once what was chosen has been played.
class StayingUp : public testing::Environment {
 public:
  void TearDown() override {
    const auto& controller = TheLaptop().controller;
    if (testing::UnitTest::GetInstance()->Failed()) return;
    Chapter(L"The laptop stays up. In another terminal:");
    for (const auto* line :
         {L"lab/laptop/play ui BLSET 50        a command of the UI's to the controller",
          L"lab/laptop/play press F6           also: flip, cord, saver, touch, projection",
          L"lab/laptop/play picture            both panels as a PNG file",
          L"lab/laptop/play trace              everything that is traced, as it comes",
          L"lab/laptop/play end                ends the controller and the laptop; Ctrl-C here does too"}) {
      Note(line);
    }
    Chapter(L"What happens now");
    while (controller.IsRunning()) (void)controller.WaitForExit();
    Check(controller.WaitForExit() == 0U, L"the controller ended, with 0");
  }
};

}  // namespace

int main(int count, char** words) {
  testing::InitGoogleTest(&count, words);
  const std::string_view wish = count > 1 ? words[1] : "";
  if (wish == "--day" || wish == "--keep") {
    GTEST_FLAG_SET(filter, wish == "--day" ? "Morning.*:Day.*" : "Morning.*");
    if (wish == "--keep") testing::AddGlobalTestEnvironment(new StayingUp);
    TellTheDay(TheLaptop());
  }
  return RUN_ALL_TESTS();
}
