#include "sim/settings_view.h"

#include "sim/file_system.h"
#include "sim/ini_file.h"

namespace sim {
namespace {

constexpr wchar_t kSection[] = L"PowerStatus";

}  // namespace

std::wstring SettingsView::Folder() const {
  const auto drive = files_.commonAppData.value_or(L"C:").substr(0, 1);
  return drive + L":\\Windows\\system32\\config\\systemprofile\\AppData\\Local\\NORV\\Vantyra";
}

std::wstring SettingsView::Path() const {
  return Folder() + L"\\TessaviewSetting.ini";
}

bool SettingsView::Exists() const {
  return files_.Kind(Path()) == os::PathKind::File;
}

std::wstring SettingsView::Text(const std::wstring& key) const {
  return IniFile(FileText()).Value(kSection, key).value_or(L"");
}

void SettingsView::Set(const std::wstring& key, const std::wstring& value) {
  IniFile ini(FileText());
  ini.Set(kSection, key, value);
  files_.AddTextFile(Path(), ini.Text());
}

void SettingsView::Remove(const std::wstring& key) {
  IniFile ini(FileText());
  ini.Remove(kSection, key);
  files_.AddTextFile(Path(), ini.Text());
}

void SettingsView::SetReadOnly(bool readOnly) {
  files_.SetReadOnly(Path(), readOnly);
}

std::wstring SettingsView::FileText() const {
  return files_.Text(Path()).value_or(L"");
}

}  // namespace sim
