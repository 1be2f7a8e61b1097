#include "os/registry.h"

#include <algorithm>

#include "os/win32/win32_support.h"

namespace os {
namespace {

win32::RegistryKey OpenMachineKey(const std::wstring& path, REGSAM access) {
  HKEY key = nullptr;
  if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, path.c_str(), 0, access, &key) != ERROR_SUCCESS) return {};
  return win32::RegistryKey(key);
}

Status WriteNumber(const std::wstring& key, const wchar_t* value, DWORD type, const void* number, DWORD size) {
  HKEY opened = nullptr;
  const LSTATUS code = RegOpenKeyExW(HKEY_LOCAL_MACHINE, key.c_str(), 0, KEY_ALL_ACCESS, &opened);
  if (code != ERROR_SUCCESS) return Error{static_cast<std::uint32_t>(code)};
  const win32::RegistryKey owner(opened);
  return win32::DoneOrCode(
      static_cast<ULONG>(RegSetValueExW(opened, value, 0, type, static_cast<const BYTE*>(number), size)));
}

}  // namespace

std::optional<std::wstring> ReadRegistryText(const std::wstring& key, const wchar_t* value, std::size_t bufferBytes) {
  const win32::RegistryKey opened = OpenMachineKey(key, KEY_READ);
  if (!opened) return {};

  std::vector<wchar_t> text(bufferBytes / sizeof(wchar_t));
  auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
  DWORD type = REG_NONE;
  const LSTATUS code =
      RegQueryValueExW(opened.get(), value, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size);
  if (code != ERROR_SUCCESS || type != REG_SZ) return {};
  text.resize(std::min(text.size(), size / sizeof(wchar_t)));
  return win32::TextOf(text);
}

std::optional<Bytes> ReadRegistryBytes(const std::wstring& key, const wchar_t* value) {
  const win32::RegistryKey opened = OpenMachineKey(key, KEY_READ | KEY_WOW64_64KEY);
  if (!opened) return {};

  DWORD type = REG_NONE;
  DWORD size = 0;
  if (RegQueryValueExW(opened.get(), value, nullptr, &type, nullptr, &size) != ERROR_SUCCESS) return {};
  if (type != REG_BINARY) return {};

  Bytes bytes(size);
  if (RegQueryValueExW(opened.get(), value, nullptr, &type, bytes.data(), &size) != ERROR_SUCCESS) return {};
  if (type != REG_BINARY) return {};
  bytes.resize(std::min<std::size_t>(bytes.size(), size));
  return bytes;
}

Status WriteRegistryText(const std::wstring& key, const wchar_t* value, const std::wstring& text) {
  HKEY created = nullptr;
  const LSTATUS code =
      RegCreateKeyExW(HKEY_LOCAL_MACHINE, key.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &created, nullptr);
  if (code != ERROR_SUCCESS) return Error{static_cast<std::uint32_t>(code)};
  const win32::RegistryKey opened(created);
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  return win32::DoneOrCode(static_cast<ULONG>(RegSetValueExW(
      opened.get(), value, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()), static_cast<DWORD>(bytes))));
}

std::vector<std::wstring> RegistrySubkeys(const std::wstring& key) {
  const win32::RegistryKey opened = OpenMachineKey(key, KEY_READ);
  if (!opened) return {};
  DWORD count = 0, longest = 0;
  if (RegQueryInfoKeyW(opened.get(), nullptr, nullptr, nullptr, &count, &longest, nullptr, nullptr, nullptr, nullptr,
                       nullptr, nullptr) != ERROR_SUCCESS) {
    return {};
  }
  std::vector<std::wstring> names;
  std::vector<wchar_t> name(longest + 1);
  for (DWORD index = 0; index < count; ++index) {
    auto length = static_cast<DWORD>(name.size());
    if (RegEnumKeyExW(opened.get(), index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS) {
      names.emplace_back(name.data(), length);
    }
  }
  return names;
}

std::optional<std::uint32_t> ReadRegistryNumber(const std::wstring& key, const wchar_t* value) {
  const win32::RegistryKey opened = OpenMachineKey(key, KEY_READ);
  if (!opened) return {};
  DWORD type = REG_NONE, number = 0, size = sizeof number;
  const LSTATUS code = RegQueryValueExW(opened.get(), value, nullptr, &type, reinterpret_cast<BYTE*>(&number), &size);
  if (code != ERROR_SUCCESS || type != REG_DWORD || size != sizeof number) return {};
  return number;
}

Status WriteRegistryNumber(const std::wstring& key, const wchar_t* value, std::uint32_t number) {
  return WriteNumber(key, value, REG_DWORD, &number, sizeof number);
}

Status WriteRegistryLongNumber(const std::wstring& key, const wchar_t* value, std::uint64_t number) {
  return WriteNumber(key, value, REG_QWORD, &number, sizeof number);
}

}  // namespace os
