#pragma once

#include <cstdint>

#include "os/hid.h"
#include "os/service_window.h"

// What the system tells, one handler or a few a file. All run on the main thread.
namespace tessaview {

// ---- hot_key.cpp ----

/// Follows a notification of the hot-key component; `wParam` says which (an F6 press, the end of an F6 sequence, a
/// flip), `lParam` more of it. Can take seconds.
void OnHotKey(std::uint64_t wParam, std::int64_t lParam);

/// Follows a report of the touch pad's status (`wParam` 3; other messages are not reports): `lParam` 0 disabled,
/// 1 enabled, 2 unknown. The UI is told to ask for it.
void OnTouchPadStatus(std::uint64_t wParam, std::int64_t lParam);

// ---- display_change.cpp ----

/// The displays changed: tells the UI, mends what turning the machine over and back does to the B panel, and brings
/// the C panel back into its place. Can take seconds.
void OnDisplayChange();

/// Brings the C panel back into its place, unless a full screen is in the foreground.
void KeepCPanelInPlace();

// ---- power_events.cpp ----

/// The power settings are about to be registered for: the first notification of lid and of display tells the state of
/// things and not a change.
void ExpectFirstNotifications();

/// Notes suspend, resume and status changes in the log (WM_POWERBROADCAST but for settings).
void OnPowerBroadcast(std::uint32_t event);

/// Follows a change of a power setting. Can take seconds.
/// - Power source, battery saver: sets the backlight; the source also has the firmware told what closing the lid does.
/// - Lid, console display: tells the UI, and brings the panel back when the lid opens or the display comes on.
/// - Lid-close action: tells the firmware.
void OnPowerSetting(os::PowerSetting setting, std::uint32_t value);

/// Makes firmware and C panel as this user has them, after another user's controller had them. Can take seconds.
void CatchUp();

// ---- session_change.cpp ----

/// Notes locks and unlocks in the log, and catches up when the session is at the console again. Can take seconds.
void OnSessionChange(std::uint32_t event);

// ---- touch_forwarding.cpp ----

/// Forwards raw input of the C panel's touch screen and touch pad to the UI, thinned to every third report and every
/// lift. Input of other devices is ignored. Blocks while the UI takes a report.
void OnRawInput(const os::RawInput& input);

// ---- mask_wait.cpp ----

/// Lets the UI take its mask off the C panel: at once or, while the sign-in or the lock screen is in the foreground, as
/// soon as the user is at the desktop. There is no time limit, and a new call takes the place of the one before.
void TakeMaskOffAtDesktop();

/// Forgets a call that still waits.
void KeepMaskOn();

/// Looks whether the user is at the desktop by now: the session was unlocked.
void LookForDesktop();

/// Has the main thread look: another window is in the foreground. Any thread; returns at once.
void OnForegroundChange();

// ---- retail_demo.cpp ----

// A machine in a shop gets its panel and its UI back after whoever played with it has gone.

/// After a display change: a duplicated desktop is extended again in three minutes; on an extended one the UI is
/// launched. Only while the service "RetailDemo" runs.
void FollowDisplaysInRetailDemo();

/// The five minutes after the panel was switched off are over: it comes back. Can take seconds.
void OnRetailDemoTimer();

/// The three minutes of a duplicated desktop are over: it is extended. Blocks for 2 seconds.
void OnRetailDemoCloneTimer();

}  // namespace tessaview
