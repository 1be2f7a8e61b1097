#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "os/types.h"
#include "os/waiting.h"

namespace os {

enum class PathKind { Missing, File, Directory };

/// What a path names (GetFileAttributesW); Missing for every failure. Any thread.
[[nodiscard]] PathKind QueryPath(const std::wstring& path);

/// Creates one folder; its parent must exist (CreateDirectoryW). Any thread.
Status CreateFolder(const std::wstring& path);

/// The first `size` bytes of a file, or all of a shorter one (CreateFileW with GENERIC_READ, ReadFile). Any thread; a
/// file read.
[[nodiscard]] Result<Bytes> ReadFileStart(const std::wstring& path, std::size_t size);
template <>
inline constexpr WaitingMark kWaiting<&ReadFileStart>{Waiting::Deaf};

/// Copies a file, overwriting the target (CopyFileW). Any thread; blocks for the length of the copy.
Status OverwriteByCopy(const std::wstring& from, const std::wstring& to);
template <>
inline constexpr WaitingMark kWaiting<&OverwriteByCopy>{Waiting::Deaf};

/// The folder of application data common to all users, such as "C:\ProgramData" (SHGetFolderPathW,
/// CSIDL_COMMON_APPDATA). Empty when the system cannot tell. Any thread.
[[nodiscard]] std::optional<std::wstring> CommonAppDataFolder();

/// The full path of this program's file, at most 260 characters (GetModuleFileNameW). Any thread.
[[nodiscard]] std::wstring OwnProgramPath();

/// A file version: four numbers, most significant first (VS_FIXEDFILEINFO).
struct FileVersion {
  std::uint16_t major = 0, minor = 0, build = 0, revision = 0;
};

/// The fixed file version in a program's version resource (GetFileVersionInfoW, VerQueryValueW "\"); empty when the
/// file has none or cannot be read. Any thread; a file read.
[[nodiscard]] std::optional<FileVersion> ReadFileVersion(const std::wstring& path);
template <>
inline constexpr WaitingMark kWaiting<&ReadFileVersion>{Waiting::Deaf};

}  // namespace os
