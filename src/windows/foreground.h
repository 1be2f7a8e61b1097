#pragma once

namespace tessaview {

/// What the user has before him, by the class of the window in the foreground.
enum class Foreground {
  Nothing,     // no window at all
  SignIn,      // the sign-in or the first boot
  LockScreen,  // the lock screen's picture, behind which the desktop goes on
  Desktop,     // anything else: the user is at the desktop
};

/// Looks at the foreground now. Any thread; microseconds.
[[nodiscard]] Foreground WhatIsInForeground();

}  // namespace tessaview
