#include "os/settings_store.h"

#include <array>

#include "os/win32/win32_support.h"

namespace os {

std::wstring ReadProfileText(const std::wstring& path, const wchar_t* section, const wchar_t* key,
                             const wchar_t* fallback) {
  std::array<wchar_t, 260> text{};
  GetPrivateProfileStringW(section, key, fallback, text.data(), static_cast<DWORD>(text.size()), path.c_str());
  return win32::TextOf(text);
}

std::uint32_t ReadProfileNumber(const std::wstring& path, const wchar_t* section, const wchar_t* key,
                                std::uint32_t fallback) {
  return GetPrivateProfileIntW(section, key, static_cast<INT>(fallback), path.c_str());
}

bool WriteProfileText(const std::wstring& path, const wchar_t* section, const wchar_t* key, const wchar_t* text) {
  return WritePrivateProfileStringW(section, key, text, path.c_str()) != FALSE;
}

}  // namespace os
