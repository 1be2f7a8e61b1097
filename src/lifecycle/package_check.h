#pragma once

namespace tessaview {

/// Waits until the panels are there, then asks the check tool, again and again up to 20 times half a second apart,
/// whether the UI's package is installed for the active user. True once it says so. Blocks for about 10 seconds when it
/// never does, and for up to 5 seconds more for each run of a tool that hangs.
bool RunPackageCheck();

/// What a single run of the check tool says; a run that takes too long says that the package is not installed.
enum class PackageVerdict { Installed, NotInstalled, Unknown };

/// Asks the check tool once. Logs nothing; blocks for up to 5 seconds. Any thread.
[[nodiscard]] PackageVerdict CheckPackageQuietly();

}  // namespace tessaview
