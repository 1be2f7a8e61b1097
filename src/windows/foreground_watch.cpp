#include "windows/foreground_watch.h"

#include <string>

#include "core/log_failure.h"
#include "core/service_window.h"
#include "core/state.h"
#include "core/threads.h"
#include "core/trace_log.h"
#include "os/desktop.h"
#include "os/hooks.h"
#include "windows/full_screen.h"
#include "windows/no_activate.h"

namespace tessaview {
namespace {

/// A window in the foreground, and whether it filled the screen.
struct Seen {
  os::WindowHandle root = os::WindowHandle::None;
  bool isFullScreen = false;
  friend bool operator==(const Seen&, const Seen&) = default;
};

Shared<Seen> gLastSeen;

/// Windows are being changed just now. That waits for their programs, and the next event comes meanwhile.
Shared<bool> gIsChanging;

/// Pointer and carets move all the time, and change nothing.
bool MayChangeTheAnswer(std::int32_t object) {
  return object != os::kObjectCursor && object != os::kObjectCaret;
}

/// Windows of the UI and of the controller come and go in front of the one that the user works with. One is known by
/// its title, whoever made it.
bool IsIgnored(os::WindowHandle window, os::WindowHandle root) {
  if (os::WindowClassName(window) == L"Tessaview_ViewClass" || root == gServiceWindow()) return true;
  const auto title = os::WindowTitle(root);
  return title.empty() || title == L"TessaviewTitle";
}

void FollowOnce(const Seen& seen) {
  if (seen.isFullScreen) {
    Log(L"[Full Screen] Is fullscreen window, NoActivate Mode. \n");
    EnterNoActivateMode();
  } else if (IsInNoActivateMode()) {
    Log(L"[Full Screen] Is not fullscreen window, Activate Mode. \n");
    LeaveNoActivateMode();
  }
}

/// What is seen meanwhile is followed afterwards.
void Follow(const Seen& now) {
  const bool isAsBefore = now == gLastSeen.exchange(now);
  // A window that hung when the mode was left still has the style, so leaving is tried again.
  if (isAsBefore && (now.isFullScreen || !IsInNoActivateMode())) return;
  if (gIsChanging.exchange(true)) return;
  auto followed = now;
  for (FollowOnce(now); followed != gLastSeen.get(); FollowOnce(followed)) followed = gLastSeen.get();
  gIsChanging.set(false);
}

}  // namespace

void OnForegroundEvent(std::int32_t object) {
  if (!MayChangeTheAnswer(object)) return;
  const auto window = os::ForegroundWindow();
  const auto root = os::RootWindow(window);
  if (!IsIgnored(window, root)) Follow({root, IsFullScreenWindow(root)});
}

void StartForegroundWatch(void (*onForeground)()) {
  StartThread(L"foreground", [onForeground] {
    const auto onEvent = [onForeground](os::WindowEvent event, os::WindowHandle, std::int32_t object) {
      if (event == os::WindowEvent::Foreground) onForeground();
      OnForegroundEvent(object);
    };
    // Not one range over both: nearly all that happens on a desktop lies between the two.
    LogFailure(L"The window in front cannot be watched",
               os::WatchWindowEvents({{os::WindowEvent::Foreground, os::WindowEvent::Foreground},
                                      {os::WindowEvent::LocationChange, os::WindowEvent::LocationChange}},
                                     onEvent));
  });
}

}  // namespace tessaview
