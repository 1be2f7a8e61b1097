#include "kit/system_events.h"

#include <windows.h>

#include <array>
#include <thread>

#include "kit/laptop_state.h"

namespace lab {
namespace {

/// Each an event that resets itself. Open as long as this process lives, so that what happens early is not lost.
HANDLE SignalOf(SystemEvent event) {
  static const std::array<HANDLE, 3> signals{CreateEventW(nullptr, FALSE, FALSE, L"TessaviewLabUiEnded"),
                                             CreateEventW(nullptr, FALSE, FALSE, L"TessaviewLabResumed"),
                                             CreateEventW(nullptr, FALSE, FALSE, L"TessaviewLabSetupFinished")};
  return signals.at(static_cast<std::size_t>(event));
}

}  // namespace

void Happen(SystemEvent event) {
  SetEvent(SignalOf(event));
}

void Await(SystemEvent event) {
  WaitForSingleObject(SignalOf(event), INFINITE);
}

void ForgetSystemEvents() {
  for (const auto event : {SystemEvent::UiEnded, SystemEvent::Resumed, SystemEvent::SetupFinished}) {
    ResetEvent(SignalOf(event));
  }
}

void SwitchToSecureDesktop(bool isSecure) {
  SharedLaptopState()->secureDesktop = isSecure ? 1 : 0;
  // On a thread that serves no messages Wine goes by what was hooked when the thread looked first: each takes a new
  // one.
  std::thread([] {
    NotifyWinEvent(EVENT_SYSTEM_DESKTOPSWITCH, GetDesktopWindow(), OBJID_WINDOW, CHILDID_SELF);
  }).join();
}

}  // namespace lab
