#include "os/files.h"

#include <windows.h>

#include <shlobj.h>
#include <winver.h>

#include <array>

#include "os/win32/win32_support.h"

namespace os {

PathKind QueryPath(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return PathKind::Missing;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathKind::Directory : PathKind::File;
}

Status CreateFolder(const std::wstring& path) {
  return win32::DoneOrLastError(CreateDirectoryW(path.c_str(), nullptr));
}

Status OverwriteByCopy(const std::wstring& from, const std::wstring& to) {
  return win32::DoneOrLastError(CopyFileW(from.c_str(), to.c_str(), FALSE));
}

std::optional<std::wstring> CommonAppDataFolder() {
  std::array<wchar_t, MAX_PATH> folder{};
  if (SHGetFolderPathW(nullptr, CSIDL_COMMON_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder.data()) != S_OK) return {};
  return win32::TextOf(folder);
}

std::wstring OwnProgramPath() {
  std::array<wchar_t, MAX_PATH> path{};
  GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
  return win32::TextOf(path);
}

std::optional<FileVersion> ReadFileVersion(const std::wstring& path) {
  const DWORD size = GetFileVersionInfoSizeW(path.c_str(), nullptr);
  Bytes resource(size);
  if (size == 0 || GetFileVersionInfoW(path.c_str(), 0, size, resource.data()) == FALSE) return {};

  void* fixed = nullptr;
  UINT fixedSize = 0;
  if (VerQueryValueW(resource.data(), L"\\", &fixed, &fixedSize) == FALSE) return {};
  if (fixed == nullptr || fixedSize < sizeof(VS_FIXEDFILEINFO)) return {};

  const auto& info = *static_cast<const VS_FIXEDFILEINFO*>(fixed);
  return FileVersion{HIWORD(info.dwFileVersionMS), LOWORD(info.dwFileVersionMS), HIWORD(info.dwFileVersionLS),
                     LOWORD(info.dwFileVersionLS)};
}

}  // namespace os
