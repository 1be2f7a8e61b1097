#include "sim/power.h"

namespace sim {

using os::PowerSetting;

void Power::Source(std::uint8_t acLineStatus) {
  status_.acLineStatus = acLineStatus;
  Change(PowerSetting::AcDcPowerSource, acLineStatus == 1 ? 0 : 1);
  Broadcast(kStatusChange);
}

void Power::BatterySaver(bool on) {
  status_.systemStatusFlag = on ? 1 : 0;
  Change(PowerSetting::PowerSavingStatus, on ? 1 : 0);
  Broadcast(kStatusChange);
}

void Power::SetDisplay(Display state) {
  Change(PowerSetting::ConsoleDisplayState, static_cast<std::uint32_t>(state));
}

void Power::SetLidAction(LidAction action) {
  SetSchemeLidAction(status_.acLineStatus == 1, static_cast<std::uint32_t>(action));
  Change(PowerSetting::LidCloseAction, static_cast<std::uint32_t>(action));
}

void Power::Change(PowerSetting setting, std::uint32_t value) {
  auto& current = values_.at(static_cast<std::size_t>(setting));
  if (current == value) return;
  current = value;
  Notify(setting, value);
}

void Power::HibernateAndWake(std::uint32_t touchLateMs) {
  touch_.Unplug();
  if (touchLateMs != kNever) touch_.PlugAfter(restMs + touchLateMs);
  Rest(5);
}

/// The system's log has the end of the rest before programs are told of it.
void Power::Rest(int state) {
  Broadcast(kSuspend);
  scheduler_.Advance(restMs);
  watches_.Woke(state);
  hooks_.Resume();
  Broadcast(kResumeAutomatic);
}

void Power::Notify(PowerSetting setting, std::uint32_t value) {
  Tell(setting, value);
  scheduler_.SettleStory();
}

void Power::Tell(PowerSetting setting, std::uint32_t value) {
  registrations_.ForEach([=, this](PowerSetting registered) {
    if (registered != setting) return;
    window_.Send([=](const auto& events) { events.powerSetting(setting, value); });
  });
}

void Power::Broadcast(std::uint32_t event) {
  window_.Send([=](const auto& events) { events.powerBroadcast(event); });
  scheduler_.SettleStory();
}

os::PowerNotification Power::Door::Register(PowerSetting setting) {
  const auto value = values_.at(static_cast<std::size_t>(setting));
  // A new registration hears the current value first.
  window_.Send([=](const auto& events) { events.powerSetting(setting, value); });
  return registrations_.Open(setting);
}

}  // namespace sim
