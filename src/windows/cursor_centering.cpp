#include "windows/cursor_centering.h"

#include "core/threads.h"
#include "core/trace_log.h"
#include "os/clock.h"
#include "os/desktop.h"
#include "os/input.h"

namespace tessaview {
namespace {

constexpr std::uint32_t kFirstPauseMs = 300, kCheckPauseMs = 200;
constexpr int kMostCorrections = 3;

/// Both edges count as inside.
bool IsInside(os::Point point, const os::Size& screen) {
  return 0 <= point.x && point.x <= screen.width && 0 <= point.y && point.y <= screen.height;
}

void PutAt(os::Point target) {
  const auto moved = os::SetCursorPosition(target);
  if (moved) {
    Log(L"Thread Set Success SetCursorPos x = %d, y = %d", target.x, target.y);
  } else {
    Log(L"Thread Set Cursor to Center Fail!! GetLastError = %d", moved.error());
  }
}

void KeepInside(os::Point target) {
  const auto screen = os::PrimaryScreenSize();
  for (int corrections = 0; corrections < kMostCorrections; ++corrections) {
    os::Sleep(kCheckPauseMs);
    const auto cursor = os::CursorPosition();
    if (IsInside(cursor, screen)) return Log(L"Thread IS in RECT CursorPos x = %d, y = %d", cursor.x, cursor.y);
    Log(L"Thread NOT in RECT CursorPos x = %d, y = %d", cursor.x, cursor.y);
    (void)os::SetCursorPosition(target);  // the next round looks where it is
  }
}

}  // namespace

void StartCursorCentering() {
  StartThread(L"cursor centering", [] {
    const auto screen = os::PrimaryScreenSize();
    const os::Point target{screen.width / 2, screen.height / 2};
    os::Sleep(kFirstPauseMs);
    PutAt(target);
    KeepInside(target);
  });
}

}  // namespace tessaview
