#pragma once

namespace tessaview {

/// The displays changed: tells the UI, mends what turning the machine over and back does to the B panel, and brings
/// the C panel back into its place. Main thread; can take seconds.
void OnDisplayChange();

}  // namespace tessaview
