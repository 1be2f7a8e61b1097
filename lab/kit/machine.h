#pragma once

#include <string>
#include <vector>

namespace lab {

/// A variable of this process's environment; empty when it is not set.
[[nodiscard]] std::wstring EnvironmentText(const wchar_t* name);

/// Writes the factory's hardware ids that tell B and C panel apart into the registry, made from what the system calls
/// their monitors. False when one is missing.
bool WriteFactoryIds();

/// A package is entered into the system's list of them.
bool ListPackage(const std::wstring& fullName);

/// The controller's settings file, where the controller puts it.
[[nodiscard]] std::wstring SettingsPath();

/// The value of a key of the settings file as it lies on disk; empty when file or key are missing.
[[nodiscard]] std::string Setting(const std::string& key);

/// One monitor of the desktop, as "1920x1080 at (0,0)"; the primary one first.
[[nodiscard]] std::vector<std::wstring> Monitors();

/// How the C panel can be turned: DMDO_270 shows its picture upright, DMDO_90 upside down.
inline constexpr unsigned kTurnedUpright = 3, kTurnedOver = 1;

/// The C panel as another program would leave it, at this place and turned so (DMDO_*, 0 to 3). False when the system
/// refuses.
bool PlaceCPanel(int x, int y, unsigned orientation);

/// Takes a picture of both panels with the program that the laptop's X server has for it (scrot), into the folder that
/// the environment variable LAB_PICTURES names as a Linux path. The file's Linux path; empty when none came.
[[nodiscard]] std::wstring TakePicture(const std::wstring& name);

}  // namespace lab
