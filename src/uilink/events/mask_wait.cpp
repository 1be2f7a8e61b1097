#include "core/service_window.h"
#include "core/state.h"
#include "power/panel_status.h"
#include "uilink/events/events.h"
#include "windows/foreground.h"

namespace tessaview {
namespace {

/// Neither the sign-in nor the lock screen is in the foreground.
bool IsUserAtDesktop() {
  const auto seen = WhatIsInForeground();
  return seen == Foreground::Desktop || seen == Foreground::Nothing;
}

/// A message of the timer may still lie in the queue after the timer was stopped; it counts only while this is true.
MainThreadOnly<bool> gMaskWaits;

}  // namespace

void TakeMaskOffAtDesktop() {
  *gMaskWaits = true;
  StartServiceTimer(ServiceTimer::Desktop);
  OnDesktopTimer();
}

void KeepMaskOn() {
  *gMaskWaits = false;
  StopServiceTimer(ServiceTimer::Desktop);
}

void OnDesktopTimer() {
  if (!*gMaskWaits || !IsUserAtDesktop()) return;
  KeepMaskOn();
  Update_UI_Mask_Status();
}

}  // namespace tessaview
