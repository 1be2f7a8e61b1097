#pragma once

namespace tessaview {

/// Watches the machine's list of installed packages, on a thread of its own. After a change the panels are refreshed,
/// and the UI is launched if it is installed and has no window; a new one comes back at once that way.
void StartPackageWatch();

}  // namespace tessaview
