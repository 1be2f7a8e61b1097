#include "core/noted_events.h"
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

Shared<bool> gMaskWaits;

}  // namespace

void TakeMaskOffAtDesktop() {
  gMaskWaits.set(true);
  LookForDesktop();
}

void KeepMaskOn() {
  gMaskWaits.set(false);
}

void LookForDesktop() {
  if (!gMaskWaits.get() || !IsUserAtDesktop()) return;
  KeepMaskOn();
  Update_UI_Mask_Status();
}

void OnForegroundChange() {
  if (gMaskWaits.get()) DealLater(LookForDesktop);
}

}  // namespace tessaview
