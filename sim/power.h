#pragma once

#include <array>
#include <cstdint>

#include "os/power.h"
#include "os/service_window.h"
#include "sim/handle_table.h"
#include "sim/hooks.h"
#include "sim/scheduler.h"
#include "sim/service_window.h"
#include "sim/touch_controller.h"
#include "sim/watches.h"

namespace sim {

/// The power source, the battery saver, the lid and the built-in display. A change tells the service window whatever it
/// asked to hear, and the laptop settles.
class Power {
 public:
  class Door;

  Power(Scheduler& scheduler, Watches& watches, ServiceWindow& window, TouchController& touch, Hooks& hooks)
      : scheduler_(scheduler), watches_(watches), window_(window), touch_(touch), hooks_(hooks) {}

  static constexpr std::uint32_t kSuspend = 4, kStatusChange = 10, kResumeAutomatic = 18;  // PBT_*
  enum class Display : std::uint32_t { Off, On, Dimmed };
  enum class LidAction : std::uint32_t { DoNothing, Sleep, Hibernate, ShutDown, DisplayOff = 6 };

  void Plug() { Source(1); }
  void Unplug() { Source(0); }
  /// The system cannot tell where the power comes from any more; nobody is told.
  void SourceUnknown() { status_.acLineStatus = 255; }
  void BatterySaver(bool on);
  void OpenLid() { Change(os::PowerSetting::LidSwitchState, 1); }
  void CloseLid() { Change(os::PowerSetting::LidSwitchState, 0); }
  void SetDisplay(Display state);
  /// The user sets what closing the lid does on the power source in use; the service window hears it.
  void SetLidAction(LidAction action);
  /// The same for either source, not heard by anybody: as the power scheme has it.
  void SetSchemeLidAction(bool onMains, std::uint32_t action) { lidActions_.at(onMains ? 1 : 0) = action; }

  /// The machine sleeps for a while and wakes again; or it hibernates, and touch controller and panels have been
  /// without power when it wakes; the controller is back on the bus `touchLateMs` milliseconds later, or never.
  void SleepAndWake() { Rest(4); }
  void HibernateAndWake(std::uint32_t touchLateMs = 0);
  std::uint32_t restMs = 3'600'000;

  /// Broadcasts one of the PBT_* events.
  void Broadcast(std::uint32_t event);

  /// Tells the service window a value of a setting without a change, as the system may do at any time.
  void Notify(os::PowerSetting setting, std::uint32_t value);

  [[nodiscard]] os::PowerStatus Status() const { return status_; }
  [[nodiscard]] std::uint32_t LidActionOf(bool onMains) const { return lidActions_.at(onMains ? 1 : 0); }
  [[nodiscard]] std::size_t Registrations() const { return registrations_.size(); }

 private:
  void Source(std::uint8_t acLineStatus);
  void Rest(int state);
  void Change(os::PowerSetting setting, std::uint32_t value);
  void Tell(os::PowerSetting setting, std::uint32_t value);

  Scheduler& scheduler_;
  Watches& watches_;
  ServiceWindow& window_;
  TouchController& touch_;
  Hooks& hooks_;
  os::PowerStatus status_{.acLineStatus = 1, .systemStatusFlag = 0};
  // By PowerSetting: display on, lid open, saver off, on mains, sleep when the lid closes.
  std::array<std::uint32_t, 5> values_{1, 1, 0, 0, 1};
  std::array<std::uint32_t, 2> lidActions_{1, 1};  // on battery, on mains: sleep
  HandleTable<os::PowerNotification, os::PowerSetting> registrations_;
};

class Power::Door : public Power {
 public:
  using Power::Power;

  os::PowerNotification Register(os::PowerSetting setting);
  void Unregister(os::PowerNotification notification) { registrations_.Close(notification); }
  void EndProcess() { registrations_.CloseAll(); }
};

}  // namespace sim
