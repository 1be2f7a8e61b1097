#pragma once

#include "kit/laptop.h"
#include "os/types.h"

namespace lab {

class AppWindow;

/// How a window is thrown from one panel to the other by its title bar: aside, until the UI is asked for the mover's
/// overlay, and into an area of that. Both are places relative to where the bar is taken, for a UI that has not told
/// its version.
struct Throw {
  const wchar_t *shown, *hovered;  // the controller's trace when it has got so far
  os::Point aside, area;
};
inline constexpr Throw kThrowDown{L"[Window Mover] WindowMoverUIEnable = TRUE",
                                  L"[Window Mover] Hover on Window Mover UI : Down",
                                  {10, 60},
                                  {75, 96}};
inline constexpr Throw kThrowUp{L"[Window Mover On C Panel] WindowMoverUIEnable = TRUE",
                                L"[Window Mover On C Panel] Hover on Window Mover UI : WinUp",
                                {70, 60},
                                {5, 76}};

/// Takes a window by its title bar and brings it to where it is thrown when it is dropped. False when the controller
/// does not follow; the window must be dropped all the same.
bool BeginThrow(const Laptop& laptop, const AppWindow& window, const Throw& how);

}  // namespace lab
