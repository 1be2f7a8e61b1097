#pragma once

namespace tessaview {

/// The C panel's touch screen is not there although its controller is, so the UI must not be shown. Any thread.
[[nodiscard]] bool gTouchScreenHidWrong();

/// Looks once whether the touch controller presents its touch screen, and sets `gTouchScreenHidWrong`. It is wrong only
/// when collections of the controller are there, all of them can be read, and none is a touch screen. Whatever cannot
/// be read, and a machine without the controller, counts as healthy: a UI that is wrongly kept away is worse than one
/// that cannot be touched. Any thread; milliseconds.
void CheckTouchScreenHid();

}  // namespace tessaview
