// How bright the C panel is: the UI's wish, the power source, battery saver.
#include "day/chapters.h"

namespace lab {

void Backlight(Day& day) {
  day.Chapter(L"The UI asks for the backlight and sets it");
  day.Happens(L"the UI sends BLGET");
  day.Check(StandInUi::Send(L"BLGET") && day.UiHeard(L"received BLSET 45"), L"answered with 45 percent, level 116");
  day.Happens(L"the backlight goes to level 255, and BLGET is sent from the command line");
  day.laptop().firmware.Set(kBacklight, 255);
  day.Check(StandInUi::SendByCommandLine(L"BLGET") && day.UiHeard(L"received BLSET 99"), L"answered with 99 percent");
  day.Happens(L"the UI sends BLSET 50");
  day.Check(StandInUi::Send(L"BLSET", 50) && Day::SettingsAre({"On", "127", "116", "1", "Cursor"}),
            L"level 127 stored for mains");
}

void Battery(Day& day) {
  Controller& controller = day.laptop().controller;
  day.Chapter(L"Battery and battery saver");
  day.Happens(L"the power cord comes out");
  Day::State().onMains = 0;
  day.Check(controller.NotifyPowerSetting(kAcDcPowerSource, kOnBattery) && day.Asked(L"DEVS 0x00050032 = 116"),
            L"panel at its level for battery, 116");
  day.Happens(L"battery saver comes on");
  Day::State().batterySaver = 1;
  day.Check(controller.NotifyPowerSetting(kPowerSavingStatus, 1) && day.Asked(L"DEVS 0x00050032 = 58"),
            L"panel dimmed to level 58");
  day.Happens(L"the user makes the panel bright all the same: BLSET 80");
  day.laptop().firmware.Set(kBacklight, 204);
  day.Check(StandInUi::Send(L"BLSET", 80) && day.UiHeard(L"received POPBATTERYMESSAGE"), L"UI told to warn the user");
  day.Check(Day::SettingsAre({"On", "127", "204", "1", "Cursor"}), L"level 204 stored for battery");
  day.Picture(L"2-battery-saver");
  day.Happens(L"the user forbids saving in the UI: POWERSAVEROFF");
  day.Check(StandInUi::Send(L"POWERSAVEROFF") && day.Asked(L"DEVS 0x00050032 = 204"), L"panel at that level");
  day.Check(Day::SettingsAre({"On", "127", "204", "0", "Cursor"}), L"settings remember it");
  day.Happens(L"the user allows it again: POWERSAVERON");
  day.Check(StandInUi::Send(L"POWERSAVERON") && day.Asked(L"DEVS 0x00050032 = 58"), L"panel dimmed again");
  day.Happens(L"the power cord goes in again, battery saver goes off");
  Day::State().onMains = 1;
  Day::State().batterySaver = 0;
  day.Check(controller.NotifyPowerSetting(kAcDcPowerSource, kOnMains) && day.Asked(L"DEVS 0x00050032 = 127"),
            L"panel back at the level stored for mains");
}

}  // namespace lab
