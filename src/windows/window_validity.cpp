#include "windows/window_validity.h"

#include "os/desktop.h"
#include "windows/companion_apps.h"
#include "windows/window_classes.h"

namespace tessaview {

WindowValidity IsValidWindow(os::WindowHandle window, os::WindowHandle target) {
  if (window == os::WindowHandle::None || !os::IsWindow(window)) return {};
  const auto className = os::WindowClassName(window);
  if (IsUiWindow(window, className)) return {.isUIWindowHit = true};
  if (IsCompanionTitle(os::WindowTitle(window)) || IsShellWindow(window, className)) return {};
  return {.isValid = true, .isSameAsPrevious = window == target};
}

}  // namespace tessaview
