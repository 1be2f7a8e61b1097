#pragma once

namespace tessaview {

/// Where the factory leaves what it knows of this machine, under HKEY_LOCAL_MACHINE.
inline constexpr const wchar_t* kFactoryConfigKey = L"SOFTWARE\\NORV\\FactoryConfig";

/// True on a machine in a shop: the service "RetailDemo" runs, or the factory set its flag "RetailDemo" to "1".
/// Any thread; milliseconds.
[[nodiscard]] bool IsRetailDemo();

}  // namespace tessaview
