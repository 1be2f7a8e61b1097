#include "os/device_io.h"
#include "os/displays.h"
#include "os/processes.h"
#include "tests/support.h"

namespace {

using namespace support;

TEST(RefreshRates, AreAnsweredAsTheyAreNow) {
  using Case = std::tuple<std::uint32_t, std::uint32_t>;
  RunningLaptop laptop;
  for (const auto& [bRate, cRate] : {Case{60, 60}, {144, 30}, {60, 0}, {0, 48}, {0, 0}}) {
    ForgetTheStory(laptop);
    auto &b = laptop.displays.bPanel(), &c = laptop.displays.cPanel();
    b.frequency = bRate != 0 ? bRate : 60;
    c.frequency = cRate != 0 ? cRate : 60;
    b.plugged = bRate != 0;  // 0 stands for a panel that is not there
    c.plugged = cRate != 0;
    laptop.ui.Send(L"GETFREQUENCY");
    const auto answers = laptop.ui.ReceivedTexts();
    ASSERT_EQ(answers.size(), 1u);
    EXPECT_EQ(answers[0].text, L"SETFREQUENCY");
    EXPECT_EQ(answers[0].point, (os::Point{static_cast<std::int32_t>(bRate), static_cast<std::int32_t>(cRate)}));
    EXPECT_EQ(answers[0].handle, 0u);
  }
}

TEST(RefreshRate, ReachesTheFirmwareAndItsVariable) {
  using Case = std::tuple<std::int32_t, std::uint32_t, std::optional<std::uint8_t>>;
  for (const auto& [hertz, firmwareValue, variable] :
       {Case{60, 1, 1}, {30, 0, 0}, {45, 1, {}}, {0, 1, {}}, {-30, 1, {}}}) {
    SCOPED_TRACE(hertz);
    RunningLaptop laptop;
    laptop.ui.Send(L"SETFREQUENCY", {.percent = 30, .point = {30, hertz}});
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kRefreshRate), Words{firmwareValue});
    const auto& variables = laptop.firmware.Variables();
    ASSERT_EQ(variables.size(), 1u);
    EXPECT_EQ(variables[0].name, L"VantyraFPS");
    EXPECT_EQ(variables[0].guid, L"{F8165EB8-0081-48A9-BD1D-1741D6CC6154}");
    ASSERT_EQ(variables[0].value.size(), 1u);
    if (variable) EXPECT_EQ(variables[0].value[0], *variable);
  }
}

TEST(RefreshRate, EndsAtTheFirstFirmwareFailure) {
  RunningLaptop laptop;
  laptop.faults.Fail<&os::Control>();
  laptop.ui.Send(L"SETFREQUENCY", {.point = {0, 60}});
  EXPECT_TRUE(LogsInOrder(laptop, {L"[SetFPS] Ready to call WMI Method \n", L"[SetFPS] WMI Method Fail \n"}));
  laptop.faults.ClearAll();
  laptop.firmware.driverInstalled = false;
  laptop.ui.Send(L"SETFREQUENCY", {.point = {0, 60}});
  EXPECT_TRUE(laptop.firmware.Variables().empty());
  EXPECT_EQ(laptop.firmware.OpenHandles(), 0u);
}

TEST(RefreshRate, TheVariableIsTriedWithoutThePrivilegeToo) {
  constexpr auto kNoToken = L"[SetFPS] Failed OpenProcessToken \n",
                 kNoPrivilege = L"[SetFPS] Failed RasiePrivileges() \n";
  constexpr auto kFailed = L"Failed!! SetFirmwareEnvironmentVariable \n";
  RunningLaptop laptop;
  const auto set = [&] {
    ForgetTheStory(laptop);
    laptop.ui.Send(L"SETFREQUENCY", {.point = {0, 30}});
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kRefreshRate), Words{0});
    EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.firmware.OpenHandles(), 0u);
  };
  laptop.faults.Fail<&os::OwnToken>();
  set();
  EXPECT_TRUE(LogsInOrder(laptop, {L"[SetFPS] SetFPS_Value = 0 \n", kNoToken, kFailed}));

  laptop.faults.ClearAll();
  laptop.sessions.missingPrivileges = {L"SeSystemEnvironmentPrivilege"};
  set();
  EXPECT_TRUE(LogsInOrder(laptop, {L"[SetFPS] SetFPS_Value = 0 \n", kNoPrivilege, kFailed}));
  EXPECT_TRUE(laptop.firmware.Variables().empty());

  laptop.sessions.missingPrivileges.clear();
  set();
  laptop.faults.Fail<&os::OwnToken>();  // the privilege is on since the last time
  set();
  EXPECT_TRUE(LogsInOrder(laptop, {kNoToken, L"Success!! SetFirmwareEnvironmentVariable \n"}));
  EXPECT_EQ(laptop.firmware.Variables().size(), 2u);
}

TEST(Resolution, IsAppliedToTheCPanelAlone) {
  using Case = std::tuple<std::uint32_t, os::Point, std::uint32_t, std::uint32_t>;
  for (const auto& [orientation, asked, width, height] : {Case{3, {1280, 343}, 1280, 343},
                                                          {1, {0, 0}, 515, 1920},
                                                          {2, {0, 0}, 515, 1920},
                                                          Case{3, {640, 0}, 640, 0},
                                                          {3, {0, 480}, 0, 480}}) {
    SCOPED_TRACE(testing::Message() << asked.x << " * " << asked.y << " in orientation " << orientation);
    RunningLaptop laptop;
    laptop.displays.cPanel().Rotate(orientation);
    laptop.ui.Send(L"SETRESOLUTION", {.percent = 5, .rect = {9, 9, 9, 9}, .point = asked});
    const auto& changes = laptop.displays.SettingsChanges();
    ASSERT_FALSE(changes.empty());  // the display change that follows may bring the panel back into its place
    EXPECT_EQ(changes[0].gdiName, laptop.displays.cPanel().gdiName);
    EXPECT_EQ(changes[0].flags, 0x9u) << "updates the registry, for all users";
    EXPECT_EQ(changes[0].settings.width, width);
    EXPECT_EQ(changes[0].settings.height, height);
    EXPECT_EQ(changes[0].settings.orientation, orientation);
  }
}

TEST(Resolution, NeedsAPanelWhoseSettingsCanBeRead) {
  RunningLaptop laptop;
  laptop.faults.Fail<&os::CurrentDisplaySettings>();
  laptop.ui.Send(L"SETRESOLUTION", {.point = {1280, 343}});
  laptop.faults.ClearAll();

  laptop.displays.cPanel().Unplug();
  laptop.ui.Send(L"GETFREQUENCY");  // the panels are looked for again
  laptop.ui.Send(L"SETRESOLUTION", {.point = {1280, 343}});
  EXPECT_TRUE(laptop.displays.SettingsChanges().empty());
}

}  // namespace
