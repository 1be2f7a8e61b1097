#include "os/files.h"

#include <windows.h>

#include <shlobj.h>

#include <array>

#include "os/win32/version_resource.h"
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

Result<Bytes> ReadFileStart(const std::wstring& path, std::size_t size) {
  const HANDLE opened = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE) return win32::LastError();
  const win32::LocalHandle file(opened);
  Bytes start(size);
  DWORD read = 0;
  if (ReadFile(opened, start.data(), static_cast<DWORD>(size), &read, nullptr) == FALSE) return win32::LastError();
  start.resize(read);
  return start;
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
  const win32::VersionResource resource(path);
  const auto fixed = resource.Data(L"\\");
  if (fixed.size() < sizeof(VS_FIXEDFILEINFO)) return {};

  const auto& info = *reinterpret_cast<const VS_FIXEDFILEINFO*>(fixed.data());
  return FileVersion{HIWORD(info.dwFileVersionMS), LOWORD(info.dwFileVersionMS), HIWORD(info.dwFileVersionLS),
                     LOWORD(info.dwFileVersionLS)};
}

}  // namespace os
