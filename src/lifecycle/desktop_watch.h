#pragma once

namespace tessaview {

/// Watches for the secure desktop, where Windows asks for consent and signs users in, on a thread of its own. Tells the
/// UI when it appears ("UACENTRY") and when the user's own desktop is back ("UACEXIT").
void StartDesktopWatch();

}  // namespace tessaview
