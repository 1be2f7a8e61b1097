#include "windows/foreground.h"

#include <string>

#include "os/desktop.h"
#include "windows/window_classes.h"

namespace tessaview {

Foreground WhatIsInForeground() {
  const auto className = os::WindowClassName(os::ForegroundWindow());
  if (className.empty()) return Foreground::Nothing;
  if (className == kCoreWindowClass || className == L"BootAppClass") return Foreground::SignIn;
  if (className == L"LockScreenControllerProxyWindow") return Foreground::LockScreen;
  return Foreground::Desktop;
}

}  // namespace tessaview
