// The UI's commands about the C panel's backlight.
#include <string>

#include "core/trace_log.h"
#include "power/backlight.h"
#include "power/power_saving.h"
#include "power/settings.h"
#include "uilink/channel/ui_channel.h"
#include "uilink/commands/command.h"

namespace tessaview {
namespace {

/// Tells the UI when battery saver is on and may dim the panel, and the panel is bright all the same.
void WarnIfBrightWhileSaving() {
  if (!gPowerSavingEnabled() || !CheckCurrentMode()) return;
  const auto level = ReadBacklight();
  const auto settings = gSettings();
  if (settings.PowerSaving != 1 || settings.batterySaverOn != 1 || !IsBright(level)) return;
  Log(L"Send to UI message : POPBATTERYMESSAGE \n");
  TellUi(texts::kPopBatteryMessage);
}

/// The UI dims the panel itself; what is stored is applied at the next power-on or change of the power source.
void SetBacklight(const UiMessage& message) {
  const auto percentage = message.Number();
  Log(L"UI set BacklightValue = %ls (0~100) \n", std::to_wstring(percentage));
  StoreBacklight(LevelFromPercentage(percentage));
  WarnIfBrightWhileSaving();
}

void TellBacklight(const UiMessage& /*message*/) {
  const auto percentage = PercentageFromLevel(ReadBacklight());
  TellUi(texts::kBacklight, {.handle = static_cast<std::uint32_t>(percentage)});
  Log(L"Send to UI BacklightValue = %d (0~100)\n", percentage);
}

void AllowPowerSaving(const UiMessage& /*message*/) {
  StorePowerSaving(true);
  EnterPowerSavingMode();
}

void ForbidPowerSaving(const UiMessage& /*message*/) {
  StorePowerSaving(false);
  EnterPowerSavingMode();
}

constexpr UiCommand kBacklightCommands[] = {
    {L"BLSET", Match::Exact, SetBacklight, nullptr,
     "handle: percent; stores the backlight for mains or battery, whichever is in use; the UI dims the panel itself; "
     "answers POPBATTERYMESSAGE when battery saver would dim a panel that is bright"},
    {L"BLGET", Match::Exact, TellBacklight, nullptr, "answers BLSET with the backlight"},
    {L"POWERSAVERON", Match::Exact, AllowPowerSaving, L"[Power Saving] UI Battery Saver On \n",
     "battery saver may dim the panel from now on; applies the battery's level again"},
    {L"POWERSAVEROFF", Match::Exact, ForbidPowerSaving, L"[Power Saving] PWN retrun to user setting \n",
     "battery saver may not dim the panel any more; applies the battery's level again"},
};

}  // namespace

UiCommandRows BacklightCommands() {
  return kBacklightCommands;
}

}  // namespace tessaview
