#include "uilink/backlight_commands.h"

#include <string>

#include "core/settings.h"
#include "core/trace_log.h"
#include "power/backlight.h"
#include "power/power_saving.h"
#include "uilink/ui_channel.h"

namespace tessaview {
namespace {

/// Tells the UI when battery saver is in force and the panel is bright all the same.
void WarnIfBrightWhileSaving() {
  if (!gPowerSavingEnabled.get() || !CheckCurrentMode()) return;
  const auto level = ReadBacklight();
  const auto settings = gSettings.get();
  if (settings.PowerSaving != 1 || settings.batterySaverOn != 1 || !IsBright(level)) return;
  Log(L"Send to UI message : POPBATTERYMESSAGE \n");
  SendUiText({.text = L"POPBATTERYMESSAGE"});
}

}  // namespace

void SetBacklight(const UiMessage& message) {
  const auto percentage = message.Number();
  Log(L"UI set BacklightValue = %ls (0~100) \n", std::to_wstring(percentage));
  StoreBacklight(LevelFromPercentage(percentage));
  WarnIfBrightWhileSaving();
}

void TellBacklight(const UiMessage& /*message*/) {
  const auto percentage = PercentageFromLevel(ReadBacklight());
  SendUiText({.text = L"BLSET", .handle = static_cast<std::uint32_t>(percentage)});
  Log(L"Send to UI BacklightValue = %d (0~100)\n", percentage);
}

void AllowPowerSaving(const UiMessage& /*message*/) {
  Log(L"[Power Saving] UI Battery Saver On \n");
  StorePowerSaving(true);
  EnterPowerSavingMode();
}

void ForbidPowerSaving(const UiMessage& /*message*/) {
  Log(L"[Power Saving] PWN retrun to user setting \n");
  StorePowerSaving(false);
  EnterPowerSavingMode();
}

}  // namespace tessaview
