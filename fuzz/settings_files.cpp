// The settings file as somebody may have left it, byte by byte. Whatever it held, what the controller takes from it is
// sound, and what it stores there can be read again.
#include <cassert>

#include "fuzz/input.h"
#include "power/settings.h"
#include "power/settings_file.h"
#include "sim/laptop.h"

namespace {

using namespace tessaview;

bool IsLevel(std::uint32_t level) {
  return level >= kDarkestLevel && level <= kBrightestLevel;
}

void Play(sim::Laptop& laptop, os::BytesView file) {
  laptop.files.AddFile(laptop.settings.Path(), {file.begin(), file.end()});
  SetUpSettingsFile();
  LoadSettings();
  assert(ReadSavedPower() != SavedPower::NoChoice);
  const auto mode = ReadSetting(kModeKey);
  assert(mode == L"Cursor" || mode == L"Touch");
  const auto settings = gSettings();
  assert(IsLevel(settings.UserBacklightValue) && IsLevel(settings.UserBacklightValueDC) && settings.PowerSaving <= 1);

  StorePowerSaving(settings.PowerSaving == 0);
  StoreBacklight(-1);
  assert(ReadSettingNumber(kPowerSavingKey, 2) == 1 - settings.PowerSaving);
  assert(ReadSettingNumber(kBacklightDCKey, 0) == 0xFFFF'FFFF);
  assert(ReadSettingNumber(kBacklightKey, 0) == settings.UserBacklightValue);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static sim::Laptop laptop;
  Play(laptop, {data, size});
  laptop.trace.Clear();
  return 0;
}
