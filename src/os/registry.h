#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "os/types.h"

namespace os {

/// Reads a text value (REG_SZ) of a key under HKEY_LOCAL_MACHINE, opened with KEY_READ (RegOpenKeyExW,
/// RegQueryValueExW with a buffer of `bufferBytes`, RegCloseKey). Ends at the first NUL, or at the value's end when it
/// has none. Empty when key or value is missing, of another type, or larger than the buffer. Any thread.
[[nodiscard]] std::optional<std::wstring> ReadRegistryText(const std::wstring& key, const wchar_t* value,
                                                           std::size_t bufferBytes);

/// Reads a binary value (REG_BINARY) of a key under HKEY_LOCAL_MACHINE, opened with KEY_READ | KEY_WOW64_64KEY: asks
/// for the size, then for the data. Empty when key or value is missing or of another type. Any thread.
[[nodiscard]] std::optional<Bytes> ReadRegistryBytes(const std::wstring& key, const wchar_t* value);

/// Writes a text value (REG_SZ, with its NUL) of a key under HKEY_LOCAL_MACHINE; a missing key is created
/// (RegCreateKeyExW, RegSetValueExW, RegCloseKey). Any thread.
Status WriteRegistryText(const std::wstring& key, const wchar_t* value, const std::wstring& text);

/// The names of a key's subkeys under HKEY_LOCAL_MACHINE, in the registry's order, opened with KEY_READ
/// (RegQueryInfoKeyW, RegEnumKeyExW by index). None when the key is missing. Any thread.
[[nodiscard]] std::vector<std::wstring> RegistrySubkeys(const std::wstring& key);

/// Reads a number (REG_DWORD) of a key under HKEY_LOCAL_MACHINE (RegQueryValueExW). Empty when key or value is missing
/// or of another type. Any thread.
[[nodiscard]] std::optional<std::uint32_t> ReadRegistryNumber(const std::wstring& key, const wchar_t* value);

/// Writes a number, or a 64-bit one (REG_DWORD, REG_QWORD), of an existing key under HKEY_LOCAL_MACHINE, opened with
/// KEY_ALL_ACCESS (RegOpenKeyExW, RegSetValueExW). A missing key is an error, and is not created. Any thread.
Status WriteRegistryNumber(const std::wstring& key, const wchar_t* value, std::uint32_t number);
Status WriteRegistryLongNumber(const std::wstring& key, const wchar_t* value, std::uint64_t number);

}  // namespace os
