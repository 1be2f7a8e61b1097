#pragma once

// Windows' out-of-box setup. Until it is over, start-up and the package watch do not launch the UI.
namespace tessaview {

/// Whether setup is over. Any thread.
[[nodiscard]] bool isOOBEComplete();

/// Asks whether setup is over, and follows it: when it ends later, `onCompleted` is called on a thread of the system's,
/// which must not be held up. Main thread.
void FollowFirstSignIn(void (*onCompleted)());

/// Follows it no longer. Main thread.
void StopFollowingFirstSignIn();

}  // namespace tessaview
