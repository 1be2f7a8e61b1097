#pragma once

#include <cstdint>
#include <string>

namespace tessaview {

/// Where Windows keeps one display configuration for each set of monitors, under HKEY_LOCAL_MACHINE. Of those that fit
/// the monitors present, it applies the one with the newest time stamp.
inline constexpr const wchar_t* kConfigurationDatabase =
    L"SYSTEM\\CurrentControlSet\\Control\\GraphicsDrivers\\Configuration";

/// The name of the first stored configuration that contains `text`; empty when there is none. Any thread.
[[nodiscard]] std::wstring FindStoredConfiguration(const std::wstring& text);

/// Gives a stored configuration the time stamp `fileTime` (100 ns units since 1601). An empty name stands for none.
void StampStoredConfiguration(const std::wstring& name, std::uint64_t fileTime);

}  // namespace tessaview
