#pragma once

#include <cstdint>
#include <string>

namespace os {

/// Reads one text value of an INI file, without surrounding blanks and quotes (GetPrivateProfileStringW).
/// At most 259 characters are returned. `fallback` when the file, section or key is missing. Any thread; a file read.
[[nodiscard]] std::wstring ReadProfileText(const std::wstring& path, const wchar_t* section, const wchar_t* key,
                                           const wchar_t* fallback);

/// Reads one number of an INI file (GetPrivateProfileIntW): the leading digits of the text, 0 when it has none;
/// decimal, or hexadecimal after "0x". A value with a minus sign comes back as its two's complement. `fallback` when
/// the file, section or key is missing or the text is empty. Any thread; a file read.
[[nodiscard]] std::uint32_t ReadProfileNumber(const std::wstring& path, const wchar_t* section, const wchar_t* key,
                                              std::uint32_t fallback);

/// Writes one value of an INI file, creating file and section as needed (WritePrivateProfileStringW); the folder must
/// exist. False when it cannot be written. Any thread; a file write.
bool WriteProfileText(const std::wstring& path, const wchar_t* section, const wchar_t* key, const wchar_t* text);

}  // namespace os
