#pragma once

#include <cstdint>
#include <string>

namespace tessaview {

/// The full path of the settings file; empty when the system could not name the folder of application data.
/// Main thread, as all that follows.
[[nodiscard]] std::wstring gSettingsPath();

// The keys of the file's one section, "PowerStatus".
inline constexpr const wchar_t* kTessaviewKey = L"Tessaview";      // "On" or "Off": the user's choice for the C panel
inline constexpr const wchar_t* kBacklightKey = L"Backlight";      // level on mains, 10 to 255
inline constexpr const wchar_t* kBacklightDCKey = L"BacklightDC";  // level on battery, 10 to 255
inline constexpr const wchar_t* kPowerSavingKey = L"PowerSaving";  // "1" or "0"
inline constexpr const wchar_t* kModeKey = L"Mode";                // "Cursor" or "Touch"

inline constexpr std::uint32_t kDarkestLevel = 10;  // the panel is never driven darker
inline constexpr std::uint32_t kBrightestLevel = 255;
inline constexpr std::uint32_t kDefaultBacklight = 116;

/// Names the settings file, creates it with its defaults when it is missing, and repairs the values that are out of
/// range when it exists. Called once, at start-up. Failures leave the defaults in force.
void SetUpSettingsFile();

/// Reads one value; `fallback` when file or key is missing.
[[nodiscard]] std::wstring ReadSetting(const wchar_t* key, const wchar_t* fallback = L"");
[[nodiscard]] std::uint32_t ReadSettingNumber(const wchar_t* key, std::uint32_t fallback);

/// Writes one value; a failure is not reported.
void WriteSetting(const wchar_t* key, const wchar_t* text);

/// What the file says of the C panel's power: the user's last choice.
enum class SavedPower { On, Off, NoChoice };

/// Reads the saved power. Only "On" and "Off", spelt exactly so, are choices.
[[nodiscard]] SavedPower ReadSavedPower();

}  // namespace tessaview
