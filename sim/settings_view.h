#pragma once

#include <string>

namespace sim {

class FileSystem;

/// The controller's settings file as a test sees it. All keys are those of its one section, "PowerStatus".
class SettingsView {
 public:
  explicit SettingsView(FileSystem& files) : files_(files) {}

  /// Where the file lies: in the system profile of the drive that holds the common application data.
  [[nodiscard]] std::wstring Folder() const;
  [[nodiscard]] std::wstring Path() const;
  [[nodiscard]] bool Exists() const;

  /// A key's value; empty when file or key is missing.
  [[nodiscard]] std::wstring Text(const std::wstring& key) const;

  /// Writes one key; creates folder and file as needed, and writes read-only files too.
  void Set(const std::wstring& key, const std::wstring& value);
  void Remove(const std::wstring& key);

  /// Makes the file refuse, or take, the controller's changes.
  void SetReadOnly(bool readOnly = true);

 private:
  [[nodiscard]] std::wstring FileText() const;

  FileSystem& files_;
};

}  // namespace sim
