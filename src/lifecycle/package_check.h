#pragma once

namespace tessaview {

/// Waits up to about 3 seconds for the C panel, then asks the check tool whether the UI's package is installed for the
/// session's user, up to 20 times half a second apart. True once it says so. When it never does, blocks for about 10
/// seconds more, and for up to 5 seconds for each run of a tool that hangs.
bool RunPackageCheck();

/// Asks the check tool once and logs what it says. True when it says that the package is installed. Blocks for up to 5
/// seconds. Any thread.
[[nodiscard]] bool CheckPackage();

/// What a single run of the check tool says; a run that takes too long says that the package is not installed.
enum class PackageVerdict { Installed, NotInstalled, Unknown };

/// Asks the check tool once. Logs nothing; blocks for up to 5 seconds. Any thread.
[[nodiscard]] PackageVerdict CheckPackageQuietly();

}  // namespace tessaview
