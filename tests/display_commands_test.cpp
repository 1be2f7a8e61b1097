#include "tests/support.h"

namespace {

using namespace support;

TEST(RefreshRates, AreAnsweredAsTheyAreNow) {
  RunningLaptop laptop;
  auto &b = laptop.displays.bPanel(), &c = laptop.displays.cPanel();
  b.frequency = 144, c.frequency = 30;
  for (const bool isCThere : {true, false}) {
    ForgetTheStory(laptop);
    c.plugged = isCThere;
    laptop.ui.Send(L"GETFREQUENCY");
    const auto answers = laptop.ui.ReceivedTexts();
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0].text, L"SETFREQUENCY");
    EXPECT_EQ(answers[0].point, (os::Point{144, isCThere ? 30 : 0}));
  }
}

TEST(RefreshRate, ReachesTheFirmwareAndItsVariable) {
  struct Rate {
    std::int32_t hertz;
    std::uint32_t firmwareValue = 1;
    std::uint8_t variable = 1;
  };
  for (const auto& rate :
       {Rate{.hertz = 60}, Rate{.hertz = 30, .firmwareValue = 0, .variable = 0}, Rate{.hertz = 45}}) {
    RunningLaptop laptop;
    laptop.ui.Send(L"SETFREQUENCY", {.percent = 30, .point = {30, rate.hertz}});
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kRefreshRate), Words{rate.firmwareValue});
    const auto& variables = laptop.firmware.Variables();
    ASSERT_EQ(variables.size(), 1u);
    EXPECT_EQ(variables[0].name, L"VantyraFPS");
    EXPECT_EQ(variables[0].guid, L"{F8165EB8-0081-48A9-BD1D-1741D6CC6154}");
    EXPECT_EQ(variables[0].value, Bytes{rate.variable});
  }
}

TEST(RefreshRate, TheVariableIsTriedWithoutThePrivilegeTooButNotWithoutTheFirmware) {
  RunningLaptop laptop;
  const auto variablesAfter = [&] {
    laptop.ui.Send(L"SETFREQUENCY", {.point = {0, 30}});
    EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.firmware.OpenHandles(), 0u);
    return laptop.firmware.Variables().size();
  };
  laptop.faults.Fail<&os::Control>();
  EXPECT_EQ(variablesAfter(), 0u);
  laptop.faults.ClearAll();
  laptop.sessions.missingPrivileges = {L"SeSystemEnvironmentPrivilege"};
  EXPECT_EQ(variablesAfter(), 0u);
  laptop.sessions.missingPrivileges.clear();
  EXPECT_EQ(variablesAfter(), 1u);
}

TEST(Resolution, IsAppliedToTheCPanelAlone) {
  struct Change {
    std::uint32_t orientation = 3;
    os::Point asked, size = asked;
  };
  for (const auto& [orientation, asked, size] : {Change{.asked = {1280, 343}},
                                                 {.asked = {640, 0}},
                                                 {.asked = {0, 480}},
                                                 {.orientation = 1, .asked = {0, 0}, .size = {515, 1920}}}) {
    RunningLaptop laptop;
    laptop.displays.cPanel().Rotate(orientation);
    laptop.displays.cPanel().fixedOutput = 2;
    laptop.ui.Send(L"SETRESOLUTION", {.percent = 5, .rect = {9, 9, 9, 9}, .point = asked});
    const auto& changes = laptop.displays.SettingsChanges();
    ASSERT_FALSE(changes.empty());  // the display change that follows may bring the panel back into its place
    EXPECT_EQ(changes[0].gdiName, laptop.displays.cPanel().gdiName);
    EXPECT_EQ(changes[0].flags, os::kCdsUpdateRegistry | os::kCdsGlobal);
    EXPECT_EQ(changes[0].settings.width, static_cast<std::uint32_t>(size.x));
    EXPECT_EQ(changes[0].settings.height, static_cast<std::uint32_t>(size.y));
    EXPECT_EQ(changes[0].settings.orientation, orientation);
    EXPECT_EQ(laptop.displays.cPanel().fixedOutput, 2U) << "kept";
  }
}

}  // namespace
