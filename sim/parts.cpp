#include "sim/parts.h"

namespace sim {

std::uint64_t Parts::NextProcessRun() {
  static std::uint64_t runs = 0;
  return ++runs;
}

os::Waiting Parts::WayOf(os::WaitingMark mark) const {
  if (mark.isDocumented || !turnsUndocumented) return mark.way;
  return mark.way == os::Waiting::Deaf ? os::Waiting::Serving : os::Waiting::Deaf;
}

void Parts::EndProcess(void (*forget)()) {
  scheduler.EndProcess();
  forget();  // while what it may close is still there
  desktop.Close(window.Handle());
  const auto end = [](auto&... parts) { (parts.EndProcess(), ...); };
  end(window, loops, power, sessions, hooks, input, windowEvents, apps, firmware, trace, touch, watches, management,
      processes, events);
  processRun = NextProcessRun();
  scheduler.BeginProcess();
}

}  // namespace sim
