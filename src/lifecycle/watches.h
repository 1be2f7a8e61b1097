#pragma once

// What comes and goes around the UI. Each watch has a thread of its own.
namespace tessaview {

/// Watches for the secure desktop, where Windows asks for consent and signs users in. Tells the UI when it appears
/// ("UACENTRY") and when the user's own desktop is back ("UACEXIT").
void StartDesktopWatch();

/// Watches the machine's list of installed packages. After a change it refreshes the panels, and launches the UI if
/// that is installed and has no window: a UI that was installed anew shows at once.
void StartPackageWatch();

/// Watches for the machine's return from hibernation: panels and touch controller were without power. Then refreshes
/// what is known of the panels, resets the touch controller, tells a second-generation machine's firmware again what
/// closing the lid does, and tells the UI "IAMBACK".
void StartResumeWatch();

/// Watches for processes that end, and has the UI brought back when it was the UI's. What cannot be set up is told to
/// debuggers only, and leaves the UI without a watchdog. False when there is no thread to be had.
[[nodiscard]] bool StartProcessStopWatch();

}  // namespace tessaview
