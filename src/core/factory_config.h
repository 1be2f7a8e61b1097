#pragma once

#include <cstddef>

namespace tessaview {

/// Where the factory leaves what it knows of this machine, under HKEY_LOCAL_MACHINE.
inline constexpr const wchar_t* kFactoryConfigKey = L"SOFTWARE\\NORV\\FactoryConfig";

/// The room offered to each of its text values, in bytes.
inline constexpr std::size_t kFactoryValueBytes = 1024;

/// True while the service "RetailDemo" runs. Any thread; milliseconds.
[[nodiscard]] bool IsRetailDemoServiceRunning();

/// True on a machine in a shop: the service "RetailDemo" runs, or the factory set its flag "RetailDemo" to "1".
/// Any thread; milliseconds.
[[nodiscard]] bool IsRetailDemo();

}  // namespace tessaview
