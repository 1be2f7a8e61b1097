#include "sim/file_system.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "sim/system_errors.h"
#include "sim/text.h"

namespace sim {
namespace {

/// The form under which a path is kept: backslashes only, none at the end.
std::wstring Normalised(std::wstring path) {
  std::replace(path.begin(), path.end(), L'/', L'\\');
  while (path.ends_with(L'\\')) path.pop_back();
  return path;
}

/// The folder a path lies in; empty for a drive.
std::wstring Parent(const std::wstring& path) {
  const auto separator = path.find_last_of(L'\\');
  return separator == std::wstring::npos ? std::wstring() : path.substr(0, separator);
}

}  // namespace

FileSystem::FileSystem() {
  AddFolder(L"C:\\Windows\\system32\\config\\systemprofile\\AppData\\Local");
  AddFolder(*commonAppData);
  AddProgram(ownProgram, {1, 2, 3, 4});
}

void FileSystem::AddFolder(const std::wstring& path) {
  for (auto folder = Normalised(path); !folder.empty(); folder = Parent(folder))
    entries_.try_emplace(folder, Entry{.isFolder = true});
}

void FileSystem::AddFile(const std::wstring& path, os::Bytes content) {
  const auto file = Normalised(path);
  AddFolder(Parent(file));
  entries_[file] = {.content = std::move(content)};
}

void FileSystem::AddTextFile(const std::wstring& path, const std::wstring& text) {
  AddFile(path);
  (void)WriteText(path, text);  // into a file that was just made
}

void FileSystem::AddProgram(const std::wstring& path, const os::FileVersion& version) {
  AddFile(path);
  entries_[Normalised(path)].version = version;
}

void FileSystem::SetProductNames(const std::wstring& path, std::vector<std::wstring> names) {
  if (Find(path) == nullptr) AddFile(path);
  entries_[Normalised(path)].productNames = std::move(names);
}

void FileSystem::SetReadOnly(const std::wstring& path, bool readOnly) {
  const auto entry = entries_.find(Normalised(path));
  if (entry != entries_.end()) entry->second.readOnly = readOnly;
}

void FileSystem::KeepFromUsers(const std::wstring& path) {
  entries_.at(Normalised(path)).keptFromUsers = true;
}

void FileSystem::Remove(const std::wstring& path) {
  const auto gone = Lower(Normalised(path)) + L'\\';
  std::erase_if(entries_, [&](const auto& entry) { return (Lower(entry.first) + L'\\').starts_with(gone); });
}

os::PathKind FileSystem::Kind(const std::wstring& path) const {
  const auto* entry = Find(path);
  if (entry == nullptr) return os::PathKind::Missing;
  if (!entry->isFolder && (path.ends_with(L'\\') || path.ends_with(L'/'))) return os::PathKind::Missing;
  return entry->isFolder ? os::PathKind::Directory : os::PathKind::File;
}

std::optional<os::Bytes> FileSystem::Content(const std::wstring& path) const {
  const auto* entry = Find(path);
  if (entry == nullptr || entry->isFolder) return std::nullopt;
  return entry->content;
}

std::optional<std::wstring> FileSystem::Text(const std::wstring& path) const {
  const auto content = Content(path);
  if (!content) return std::nullopt;
  const bool isUtf16 = content->size() >= 2 && (*content)[0] == 0xFF && (*content)[1] == 0xFE;
  if (isUtf16) return FromUtf16(os::BytesView(*content).subspan(2));
  return std::wstring(content->begin(), content->end());
}

std::optional<os::FileVersion> FileSystem::Version(const std::wstring& path) const {
  const auto* entry = Find(path);
  return entry == nullptr ? std::nullopt : entry->version;
}

std::uint32_t FileSystem::Door::CreateFolder(const std::wstring& path) {
  const auto error = TryCreateFolder(Normalised(path));
  folderCreations_.push_back({path, error});
  return error;
}

std::uint32_t FileSystem::Door::Copy(const std::wstring& from, const std::wstring& to,
                                     std::optional<std::uint32_t> asUser) {
  const auto error = TryCopy(Normalised(from), Normalised(to), asUser.has_value());
  copies_.push_back({from, to, asUser, error});
  return error;
}

os::Result<os::Bytes> FileSystem::Door::ReadStart(const std::wstring& path, std::size_t size, bool asUser) const {
  if (const auto error = ReadRefusal(path, asUser); error != 0) return os::Error{error};
  auto start = Find(path)->content;
  start.resize(std::min(start.size(), size));
  return start;
}

std::vector<std::wstring> FileSystem::Door::ProductNames(const std::wstring& path, bool asUser) const {
  return ReadRefusal(path, asUser) == 0 ? Find(path)->productNames : std::vector<std::wstring>();
}

/// Text that fits one byte a character is written so, as the private-profile functions do.
std::uint32_t FileSystem::WriteText(const std::wstring& path, const std::wstring& text) {
  if (const auto error = WriteRefusal(path); error != 0) return error;
  const bool fits = std::all_of(text.begin(), text.end(), [](wchar_t c) { return c < 0x100; });
  os::Bytes content;
  if (fits) {
    for (const auto c : text) content.push_back(static_cast<std::uint8_t>(c));
  } else {
    content = ToUtf16(L'\xFEFF' + text);
  }
  entries_[Normalised(path)].content = std::move(content);
  return 0;
}

const FileSystem::Entry* FileSystem::Find(const std::wstring& path) const {
  const auto entry = entries_.find(Normalised(path));
  return entry == entries_.end() ? nullptr : &entry->second;
}

/// Why a file cannot be written at this place; 0 when it can.
std::uint32_t FileSystem::WriteRefusal(const std::wstring& path) const {
  const auto file = Normalised(path);
  const auto* entry = Find(file);
  if (entry != nullptr) return entry->isFolder || entry->readOnly ? kAccessDenied : 0;
  return Kind(Parent(file)) == os::PathKind::Directory ? 0 : kPathNotFound;
}

std::uint32_t FileSystem::TryCreateFolder(const std::wstring& path) {
  if (Find(path) != nullptr) return kAlreadyExists;
  if (Kind(Parent(path)) != os::PathKind::Directory) return kPathNotFound;
  entries_[path] = {.isFolder = true};
  return 0;
}

/// Why a file cannot be read; 0 when it can.
std::uint32_t FileSystem::ReadRefusal(const std::wstring& path, bool asUser) const {
  const auto file = Normalised(path);
  const auto* entry = Find(file);
  if (entry == nullptr) return Kind(Parent(file)) == os::PathKind::Directory ? kFileNotFound : kPathNotFound;
  return entry->isFolder || (entry->keptFromUsers && asUser) ? kAccessDenied : 0;
}

std::uint32_t FileSystem::TryCopy(const std::wstring& from, const std::wstring& to, bool asUser) {
  if (const auto error = ReadRefusal(from, asUser); error != 0) return error;
  if (const auto error = WriteRefusal(to); error != 0) return error;
  auto copy = *Find(from);
  entries_[to] = std::move(copy);
  return 0;
}

}  // namespace sim
