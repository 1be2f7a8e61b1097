#pragma once

namespace lab {

/// What Windows would tell the controller, and Wine does not. The test says that it happened; the import
/// patch, in the controller, tells it as Windows would.
enum class SystemEvent {
  UiEnded,        // the process of the UI's program
  Resumed,        // the machine is back from hibernation
  SetupFinished,  // Windows' first setup
};

/// Says that it happened; one that the controller does not wait for yet is kept for it.
void Happen(SystemEvent event);

/// Waits until it happens, without a time limit, once for each time.
void Await(SystemEvent event);

/// Drops what nobody has waited for.
void ForgetSystemEvents();

/// The secure desktop takes the screen, or gives it back; Windows raises an event when it does.
void SwitchToSecureDesktop(bool isSecure);

}  // namespace lab
