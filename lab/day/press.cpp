// Does something to the laptop that is up: press F6. An action with two states goes from one to the other.
#include <windows.h>

#include <cstdio>
#include <string>
#include <string_view>

#include "kit/controller.h"
#include "kit/firmware_driver.h"
#include "kit/laptop_state.h"
#include "kit/machine.h"
#include "kit/touch_controller.h"

namespace {

using namespace lab;

LaptopState& State() {
  return *SharedLaptopState();
}

bool F6() {
  const bool on = Setting("Tessaview") == "On";
  std::puts(on ? "F6: panel off" : "F6 twice: panel on");
  Controller::PressF6(on ? 1 : 2, on ? kF6PanelOff : kF6PanelOn);
  return true;
}

bool Flip() {
  FirmwareDriver firmware;
  const bool over = firmware.Read(kFlipState) == 0;
  std::puts(over ? "folded over" : "unfolded");
  const bool set = firmware.Set(kFlipState, over ? 1 : 0);
  Controller::PostHotKey(HotKey::FlipChanged);
  return set;
}

bool Cord() {
  const bool in = State().onMains == 0;
  std::puts(in ? "power cord in" : "power cord out");
  State().onMains = in ? 1 : 0;
  return Controller::NotifyPowerSetting(kAcDcPowerSource, in ? kOnMains : kOnBattery);
}

bool Saver() {
  const bool on = State().batterySaver == 0;
  std::puts(on ? "battery saver on" : "battery saver off");
  State().batterySaver = on ? 1 : 0;
  return Controller::NotifyPowerSetting(kPowerSavingStatus, State().batterySaver);
}

bool Touch() {
  TouchController touch;
  std::puts("a finger on the C panel, and off again");
  return touch.Report(kTouchPad, {1, 1, 0, 0x34, 0x02, 0x78, 0x05, 1}) &&
         touch.Report(kTouchPad, {1, 0, 0, 0x34, 0x02, 0x78, 0x05, 1});
}

/// PC screen only, duplicate, extend and second screen only, in turn. The controller looks when it is unfolded.
bool Projection() {
  constexpr std::uint32_t kExternal = 8;
  State().topology = State().topology == kExternal ? 1 : State().topology * 2;
  std::printf("projection mode %u (1 PC screen only, 2 duplicate, 4 extend, 8 second screen only)\n", State().topology);
  Controller::PostHotKey(HotKey::FlipChanged);
  return true;
}

bool Exit() {
  Controller::Exit();
  return true;
}

struct Action {
  std::string_view name;
  bool (*run)();
};
constexpr Action kActions[] = {{"F6", F6},       {"flip", Flip},   {"cord", Cord},
                               {"saver", Saver}, {"touch", Touch}, {"projection", Projection},
                               {"exit", Exit}};

}  // namespace

int main(int count, char** words) {
  if (Controller::Window() == nullptr) {
    std::fputs("the controller is not there\n", stderr);
    return 1;
  }
  for (const auto& action : kActions) {
    if (count == 2 && action.name == words[1]) return action.run() ? 0 : 1;
  }
  std::fputs("there is: F6 flip cord saver touch projection exit\n", stderr);
  return 2;
}
