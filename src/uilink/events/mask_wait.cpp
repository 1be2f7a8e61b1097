#include "uilink/events/mask_wait.h"

#include "core/service_window.h"
#include "core/state.h"
#include "power/panel_status.h"
#include "windows/foreground.h"

namespace tessaview {
namespace {

bool IsUserAtDesktop() {
  const auto seen = WhatIsInForeground();
  return seen == Foreground::Desktop || seen == Foreground::Nothing;
}

/// The timer may have come already when it was stopped, and be served yet.
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
