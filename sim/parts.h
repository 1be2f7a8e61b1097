#pragma once

#include <cstdint>
#include <optional>

#include "sim/apps.h"
#include "sim/desktop.h"
#include "sim/displays.h"
#include "sim/door_call.h"
#include "sim/faults.h"
#include "sim/file_system.h"
#include "sim/firmware.h"
#include "sim/hooks.h"
#include "sim/hot_key.h"
#include "sim/input.h"
#include "sim/kernel_objects.h"
#include "sim/management.h"
#include "sim/mouse.h"
#include "sim/power.h"
#include "sim/processes.h"
#include "sim/registry.h"
#include "sim/scheduler.h"
#include "sim/service_window.h"
#include "sim/services.h"
#include "sim/sessions.h"
#include "sim/thread_loops.h"
#include "sim/touch_controller.h"
#include "sim/trace_session.h"
#include "sim/ui.h"
#include "sim/watches.h"
#include "sim/window_events.h"

namespace sim {

/// The laptop from inside. Each part is handed the parts it acts on, which stand above it. Where one above has to act
/// on one below, the lower part asks to be called, as with Processes::WhenOneEnds.
///
/// A part has three faces. Its class, such as Mouse, is what a test may do to it and see of it. The class inside that,
/// such as Mouse::Door, adds what programs reach through the door, and what ends with their process; tests never get at
/// it. What the machine does by itself is private.
struct Parts {
  Parts(std::uint32_t seed, bool interleaving) : scheduler(seed, interleaving) {}

  /// How a door function lets its thread wait on this machine.
  [[nodiscard]] os::Waiting WayOf(os::WaitingMark mark) const;

  /// The process is gone, and all it held. `forget` makes its program forget all it knew.
  void EndProcess(void (*forget)());

  bool turnsUndocumented = false;  // what is not documented is the other way round
  Scheduler scheduler;
  Faults::Door faults;
  ThreadLoops loops{scheduler};
  Watches watches{scheduler};
  WindowEvents windowEvents{loops};
  Registry registry{watches};
  FileSystem::Door files;
  TraceSession::Door trace;
  Services services;
  KernelObjects::Door events;
  Management::Door management{scheduler};
  Processes::Door processes{scheduler, management};
  Displays::Door displays{scheduler, registry};
  Desktop::Door desktop{scheduler, files, displays, processes, windowEvents};
  ServiceWindow::Door window{scheduler, loops, files, displays, desktop};
  Firmware::Door firmware{displays};
  TouchController::Door touch{scheduler, window};
  Hooks hooks{scheduler, loops};
  Input::Door input{scheduler, hooks.keyboard, desktop};
  Mouse::Door mouse{scheduler, hooks.mouse, desktop};
  Ui ui{scheduler, processes, desktop, window};
  Apps::Door apps{scheduler, registry, processes, ui};
  HotKey hotKey{scheduler, desktop, window};
  Power::Door power{scheduler, watches, window, touch, hooks};
  Sessions::Door sessions{scheduler, desktop, window, hooks};

  /// Which process run this is, counted over all laptops: what belongs to an earlier one is void.
  std::uint64_t processRun = NextProcessRun();

 private:
  static std::uint64_t NextProcessRun();
};

/// Whether a laptop is switched on. There is one at a time.
[[nodiscard]] bool IsOn();

/// Its parts, for the door's functions. Without a laptop the program ends with a message.
[[nodiscard]] Parts& Machine();

}  // namespace sim
