#pragma once

#include "os/types.h"

namespace tessaview {

/// Whether a window may be moved between the panels, and what else its check found.
struct WindowValidity {
  bool isValid = false;
  bool isUIWindowHit = false;     // it is one of the UI's
  bool isSameAsPrevious = false;  // it is valid and already the target
};

/// Checks a window: applications' windows may be moved; those of the UI, of its companions and of the shell may not.
/// `target` is the window that the UI's UP and DOWN move. Any thread; microseconds.
[[nodiscard]] WindowValidity IsValidWindow(os::WindowHandle window, os::WindowHandle target);

}  // namespace tessaview
