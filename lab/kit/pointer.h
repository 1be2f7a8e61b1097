#pragma once

#include "os/types.h"

namespace lab {

class AppWindow;

/// The user's mouse: real input, as a mouse gives it (SendInput). Each call returns once the system has taken the
/// input; what programs make of it comes later.
class Pointer {
 public:
  /// One jump.
  static void MoveTo(os::Point to);

  /// Small steps, some milliseconds apart, from where the pointer is.
  static void GlideTo(os::Point to);

  /// The left button.
  static void Press();
  static void Release();

  /// Takes a window in the middle of its title bar and begins to move it. Returns once the window knows that it is
  /// moved; false when it does not in time.
  static bool Grab(const AppWindow& window);

  /// Lets it go. False when the window does not know in time.
  static bool Drop(const AppWindow& window);
};

}  // namespace lab
