#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "os/files.h"
#include "os/types.h"
#include "sim/registry.h"

namespace sim {

/// One folder that was asked for.
struct FolderCreation {
  std::wstring path;
  std::uint32_t error = 0;  // 0, or why it was refused
};

/// One copy that was asked for.
struct FileCopy {
  std::wstring from, to;
  std::optional<std::uint32_t> asUser = {};  // the session as whose user the copying thread acted
  std::uint32_t error = 0;
};

/// The laptop's drives: folders and files, found without regard to case. A new one holds Windows, the system profile
/// and the controller's own program; the settings folder and file are not there yet.
class FileSystem {
 public:
  class Door;

  FileSystem();

  /// The folder of application data common to all users; without a value the system cannot tell.
  std::optional<std::wstring> commonAppData = L"C:\\ProgramData";
  std::wstring ownProgram = L"C:\\Program Files\\NORV\\Tessaview\\TessaviewService.exe";

  /// Adds a folder with all folders above it.
  void AddFolder(const std::wstring& path);
  /// Adds or replaces a file, with the folders above it.
  void AddFile(const std::wstring& path, os::Bytes content = {});
  void AddTextFile(const std::wstring& path, const std::wstring& text);
  void AddProgram(const std::wstring& path, const os::FileVersion& version);
  /// The product names in a program's version resource, one for each translation; adds the file when it is not there.
  void SetProductNames(const std::wstring& path, std::vector<std::wstring> names);
  void SetReadOnly(const std::wstring& path, bool readOnly = true);
  /// The system may read a file, and its users may not.
  void KeepFromUsers(const std::wstring& path);
  /// Removes a file, or a folder with all it holds.
  void Remove(const std::wstring& path);

  [[nodiscard]] os::PathKind Kind(const std::wstring& path) const;
  [[nodiscard]] std::optional<os::Bytes> Content(const std::wstring& path) const;
  /// A file's text: UTF-16 after its byte-order mark, one byte a character otherwise.
  [[nodiscard]] std::optional<std::wstring> Text(const std::wstring& path) const;
  [[nodiscard]] std::optional<os::FileVersion> Version(const std::wstring& path) const;
  [[nodiscard]] const std::vector<FolderCreation>& FolderCreations() const { return folderCreations_; }
  [[nodiscard]] const std::vector<FileCopy>& Copies() const { return copies_; }

 private:
  struct Entry {
    bool isFolder = false, readOnly = false, keptFromUsers = false;
    os::Bytes content = {};
    std::optional<os::FileVersion> version = {};
    std::vector<std::wstring> productNames = {};
  };
  [[nodiscard]] const Entry* Find(const std::wstring& path) const;
  std::uint32_t WriteText(const std::wstring& path, const std::wstring& text);
  [[nodiscard]] std::uint32_t WriteRefusal(const std::wstring& path) const;
  std::uint32_t TryCreateFolder(const std::wstring& path);
  std::uint32_t TryCopy(const std::wstring& from, const std::wstring& to, bool asUser);
  [[nodiscard]] std::uint32_t ReadRefusal(const std::wstring& path, bool asUser) const;

  std::map<std::wstring, Entry, IgnoreCase> entries_;
  std::vector<FolderCreation> folderCreations_;
  std::vector<FileCopy> copies_;
};

/// What programs do; what changes something answers 0 or a system error code. `asUser`: with the rights of the user.
class FileSystem::Door : public FileSystem {
 public:
  std::uint32_t CreateFolder(const std::wstring& path);
  std::uint32_t Copy(const std::wstring& from, const std::wstring& to, std::optional<std::uint32_t> asUser);
  os::Result<os::Bytes> ReadStart(const std::wstring& path, std::size_t size, bool asUser) const;
  [[nodiscard]] std::vector<std::wstring> ProductNames(const std::wstring& path, bool asUser) const;
  using FileSystem::WriteText;
};

}  // namespace sim
