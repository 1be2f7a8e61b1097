#include <utility>

#include "core/input_hooks.h"
#include "core/state.h"
#include "core/trace_log.h"
#include "uilink/events/events.h"

namespace tessaview {
namespace {

// Published values of the session events (WTS_*).
constexpr std::uint32_t kConsoleConnect = 1, kConsoleDisconnect = 2, kLock = 7, kUnlock = 8;

struct Whereabouts {
  bool isLocked = false;
  bool isBack = false;  // at the console, and neither locked nor unlocked since
};

MainThreadOnly<Whereabouts> gWhereabouts;

/// The displays can be reached only once a locked session is unlocked. Whether it is locked is not always told before:
/// then what can be done is done at once, and all of it again when the unlock comes.
void OnConsoleConnect() {
  Log(L"[Session] At the console, firmware and displays are in these hands again \n");
  gWhereabouts->isBack = true;
  if (!gWhereabouts->isLocked) CatchUp();
}

void OnConsoleDisconnect() {
  Log(L"[Session] Not at the console, firmware and displays are left alone \n");
  gWhereabouts->isBack = false;
}

void OnUnlock() {
  LookForDesktop();
  ReviveHooks();
  gWhereabouts->isLocked = false;
  if (std::exchange(gWhereabouts->isBack, false)) CatchUp();
}

}  // namespace

void OnSessionChange(std::uint32_t event) {
  switch (event) {
    case kConsoleConnect:
      return OnConsoleConnect();
    case kConsoleDisconnect:
      return OnConsoleDisconnect();
    case kLock:
      Log(L"WTS_SESSION_LOCK \n");
      *gWhereabouts = {.isLocked = true};
      return;
    case kUnlock:
      Log(L"WTS_SESSION_UNLOCK \n");
      return OnUnlock();
    default:
      return;
  }
}

}  // namespace tessaview
