#include "kit/pointer.h"

#include <windows.h>

#include <algorithm>
#include <cstdlib>

#include "kit/app_window.h"
#include "kit/journal.h"
#include "kit/pointer_rest.h"

namespace lab {
namespace {

void Send(DWORD flags, os::Point at = {}) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = at.x;
  input.mi.dy = at.y;
  input.mi.dwFlags = flags;
  SendInput(1, &input, sizeof input);
}

/// A pixel as input counts it: 65536 units from one end of the desktop to the other, rounded up so that it comes out as
/// the pixel again.
LONG UnitsOf(LONG pixel, int firstMetric, int countMetric) {
  constexpr LONG kUnits = 65536;
  const LONG first = GetSystemMetrics(firstMetric), count = std::max(GetSystemMetrics(countMetric), 1);
  return ((pixel - first) * kUnits + count - 1) / count;
}

os::Point Position() {
  POINT at{};
  GetCursorPos(&at);
  return {at.x, at.y};
}

}  // namespace

void Pointer::MoveTo(os::Point to) {
  LetPointerRest();
  Send(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK,
       {UnitsOf(to.x, SM_XVIRTUALSCREEN, SM_CXVIRTUALSCREEN), UnitsOf(to.y, SM_YVIRTUALSCREEN, SM_CYVIRTUALSCREEN)});
}

void Pointer::GlideTo(os::Point to) {
  constexpr int kStep = 40;  // pixels
  constexpr DWORD kStepMs = 4;
  const os::Point from = Position();
  const int steps = std::max({std::abs(to.x - from.x), std::abs(to.y - from.y), kStep}) / kStep;
  for (int i = 1; i <= steps; ++i) {
    MoveTo({from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps});
    Sleep(kStepMs);
  }
}

void Pointer::Press() {
  Send(MOUSEEVENTF_LEFTDOWN);
}

void Pointer::Release() {
  Send(MOUSEEVENTF_LEFTUP);
}

bool Pointer::Grab(const AppWindow& window) {
  constexpr std::int32_t kUnmistakable = 8;  // pixels: further than a click may slip
  const os::Point bar = window.TitleBar();
  PutPointerToRest();
  // What was under way when the pointer went to rest may still take it back there.
  constexpr DWORD kSettleMs = 20;
  const bool stays = Eventually([&] {
    MoveTo(bar);
    Sleep(kSettleMs);
    return Position() == bar;
  });
  if (!stays) return false;
  Press();
  return Eventually([&, moved = 0]() mutable {
    moved = kUnmistakable - moved;
    MoveTo({bar.x + moved, bar.y});
    return window.IsBeingMoved();
  });
}

bool Pointer::Drop(const AppWindow& window) {
  Release();
  return Eventually([&] { return !window.IsBeingMoved(); });
}

}  // namespace lab
