// Windows of other programs. Wine puts only its own process's windows where a placement says, and calls the place
// that another window has now its normal one.
#include <windows.h>

#include <bit>
#include <cstdint>

#include "patch/patched_calls.h"

namespace lab::patch {
namespace {

/// The system's own function, whichever module's imports were redirected.
template <class Function>
Function* BySystem(Function* /*type*/, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

bool IsOfAnotherProcess(HWND window) {
  DWORD owner = 0;
  return GetWindowThreadProcessId(window, &owner) != 0 && owner != GetCurrentProcessId();
}

// Where a window was placed last stays with the window, as four numbers of 16 bits in one of its properties.
constexpr wchar_t kNormalPlace[] = L"TessaviewLabNormalPlace";
struct Place {
  std::int16_t left, top, right, bottom;
};

void KeepPlace(HWND window, const RECT& rect) {
  const auto narrow = [](LONG value) { return static_cast<std::int16_t>(value); };
  const Place place{narrow(rect.left), narrow(rect.top), narrow(rect.right), narrow(rect.bottom)};
  SetPropW(window, kNormalPlace, std::bit_cast<HANDLE>(place));
}

/// With calls that do reach another program's window. One that is maximised and stays so stays where it is. A window
/// that was maximised before it was minimised takes a step for each. The rectangle counts from the work area of the
/// primary display, which begins at the desktop's origin here.
BOOL WINAPI PlaceWindow(HWND window, const WINDOWPLACEMENT* placement) {
  static auto* const place = BySystem(&SetWindowPlacement, "SetWindowPlacement");
  if (placement->length != sizeof *placement || !IsOfAnotherProcess(window)) return place(window, placement);
  if (IsZoomed(window) && placement->showCmd == SW_SHOWMAXIMIZED) {
    KeepPlace(window, placement->rcNormalPosition);
    return TRUE;
  }
  for (int steps = 0; steps < 2 && (IsIconic(window) || IsZoomed(window)); ++steps) ShowWindow(window, SW_SHOWNORMAL);
  const RECT& normal = placement->rcNormalPosition;
  const BOOL moved = SetWindowPos(window, nullptr, normal.left, normal.top, normal.right - normal.left,
                                  normal.bottom - normal.top, SWP_NOZORDER | SWP_NOACTIVATE);
  if (moved) KeepPlace(window, normal);
  ShowWindow(window, static_cast<int>(placement->showCmd));
  return moved;
}

/// Where a window belongs that is not shown normally is known since it was placed.
BOOL WINAPI PlacementOf(HWND window, WINDOWPLACEMENT* placement) {
  static auto* const read = BySystem(&GetWindowPlacement, "GetWindowPlacement");
  if (!read(window, placement)) return FALSE;
  if (!IsOfAnotherProcess(window) || placement->showCmd == SW_SHOWNORMAL) return TRUE;
  if (const HANDLE kept = GetPropW(window, kNormalPlace)) {
    const auto place = std::bit_cast<Place>(kept);
    placement->rcNormalPosition = {place.left, place.top, place.right, place.bottom};
  }
  return TRUE;
}

}  // namespace

std::array<Redirection, 2> WindowCalls() {
  return {{{"SetWindowPlacement", reinterpret_cast<void*>(PlaceWindow)},
           {"GetWindowPlacement", reinterpret_cast<void*>(PlacementOf)}}};
}

}  // namespace lab::patch
