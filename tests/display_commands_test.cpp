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
    EXPECT_EQ(laptop.ui.Received(), Texts{L"SETFREQUENCY"});
    EXPECT_EQ(laptop.ui.ReceivedTexts().at(0).point, (os::Point{144, isCThere ? 30 : 0}));
  }
}

TEST(RefreshRate, ReachesTheFirmwareAndItsVariable) {
  for (const auto& [hertz, firmwareValue, variable] :
       {std::tuple(60, 1U, std::uint8_t{1}), {30, 0U, std::uint8_t{0}}, {45, 1U, std::uint8_t{1}}}) {
    RunningLaptop laptop;
    laptop.ui.Send(L"SETFREQUENCY", {.percent = 30, .point = {30, hertz}});
    EXPECT_EQ(laptop.firmware.Writes(Firmware::kRefreshRate), Words{firmwareValue});
    const auto& written = laptop.firmware.Variables().at(0);
    EXPECT_EQ(written.name + written.guid, L"VantyraFPS{F8165EB8-0081-48A9-BD1D-1741D6CC6154}");
    EXPECT_EQ(written.value, Bytes{variable});
  }
}

TEST(RefreshRate, TheVariableIsTriedWithoutThePrivilegeTooButNotWithoutTheFirmware) {
  RunningLaptop laptop;
  for (const auto change :
       {+[](Laptop& l) { l.faults.Fail<&os::Control>(); },
        +[](Laptop& l) { l.faults.ClearAll(), l.sessions.missingPrivileges = {L"SeSystemEnvironmentPrivilege"}; },
        +[](Laptop& l) { l.sessions.missingPrivileges.clear(); }}) {
    EXPECT_TRUE(laptop.firmware.Variables().empty());
    change(laptop);
    laptop.ui.Send(L"SETFREQUENCY", {.point = {0, 30}});
    EXPECT_EQ(laptop.sessions.OpenTokens() + laptop.firmware.OpenHandles(), 0u);
  }
  EXPECT_EQ(laptop.firmware.Variables().size(), 1u);
}

TEST(Resolution, IsAppliedToTheCPanelAlone) {
  for (const auto& [orientation, asked, width, height] : {std::tuple(3U, os::Point{1280, 343}, 1280U, 343U),
                                                          {3U, os::Point{640, 0}, 640U, 0U},
                                                          {3U, os::Point{0, 480}, 0U, 480U},
                                                          {1U, os::Point{0, 0}, 515U, 1920U}}) {
    RunningLaptop laptop;
    auto& c = laptop.displays.cPanel();
    c.Rotate(orientation);
    c.fixedOutput = 2;
    laptop.ui.Send(L"SETRESOLUTION", {.percent = 5, .rect = {9, 9, 9, 9}, .point = asked});
    const auto& first = laptop.displays.SettingsChanges().at(0);  // what follows it may bring the panel into its place
    EXPECT_EQ(std::pair(first.gdiName, first.flags), std::pair(c.gdiName, os::kCdsUpdateRegistry | os::kCdsGlobal));
    EXPECT_EQ(std::tuple(first.settings.width, first.settings.height, first.settings.orientation),
              std::tuple(width, height, orientation));
    EXPECT_EQ(c.fixedOutput, 2U) << "kept";
  }
}

}  // namespace
