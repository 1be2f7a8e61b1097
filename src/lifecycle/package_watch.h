#pragma once

namespace tessaview {

/// Watches the machine's list of installed packages, on a thread of its own. After a change it refreshes the panels,
/// and launches the UI if that is installed and has no window: a UI that was installed anew shows at once.
void StartPackageWatch();

}  // namespace tessaview
