// What the firmware answers: a byte with bits for mains, battery saver and the user's leave to dim; the length of the
// replies in a byte; the user's level in four; then the six statuses.
#include <cassert>

#include "fuzz/input.h"
#include "power/backlight.h"
#include "power/firmware.h"
#include "power/power_saving.h"
#include "power/settings.h"
#include "sim/laptop.h"

namespace {

using namespace tessaview;

constexpr FirmwareId kIds[] = {FirmwareId::PanelPower,  FirmwareId::Backlight,      FirmwareId::Generation,
                               FirmwareId::RefreshRate, FirmwareId::LidCloseAction, FirmwareId::FlipState};

void Play(sim::Laptop& laptop, fuzz::Input input) {
  const auto bits = input.Number<std::uint8_t>();
  (bits & 1) != 0 ? laptop.power.Plug() : laptop.power.Unplug();
  laptop.power.BatterySaver((bits & 2) != 0);
  StorePowerSaving((bits & 4) != 0);
  laptop.firmware.replyBytes = input.Number<std::uint8_t>();
  StoreBacklight(static_cast<std::int32_t>(input.Number<std::uint32_t>()));
  const bool isWhole = laptop.firmware.replyBytes >= sizeof(std::uint32_t);
  for (const auto id : kIds) {
    const auto status = input.Number<std::uint32_t>();
    laptop.firmware.SetRegister(static_cast<std::uint32_t>(id), status);
    assert(ACPI_ZRV_DSTS(id) == (isWhole ? status : 0));
  }

  const auto percentage = PercentageFromLevel(ReadBacklight());
  assert(percentage >= 0 && percentage <= 99 && LevelFromPercentage(percentage) <= 255);
  const bool isFirst = InitGenerationCheck() == Generation::G1;
  assert(isFirst == (isWhole && (laptop.firmware.Register(sim::Firmware::kGeneration) & 4) != 0));

  EnterPowerSavingMode();
  LeavePowerSavingMode();
  for (const auto level : laptop.firmware.Writes(sim::Firmware::kBacklight)) assert(level >= 10 && level <= 255);
  assert(laptop.firmware.OpenHandles() == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static sim::Laptop laptop;
  Play(laptop, fuzz::Input({data, size}));
  laptop.firmware.ForgetRequests();
  laptop.trace.Clear();
  return 0;
}
