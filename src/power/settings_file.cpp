#include "power/settings_file.h"

#include "core/state.h"
#include "core/trace_log.h"
#include "os/files.h"
#include "os/settings_store.h"
#include "os/trace.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kSection = L"PowerStatus";
constexpr const wchar_t* kFolderOnDrive = L":\\Windows\\system32\\config\\systemprofile\\AppData\\Local\\NORV\\Vantyra";
constexpr const wchar_t* kFileName = L"TessaviewSetting.ini";

constexpr const wchar_t* kDefaultBacklightText = L"116";

/// The folder lies in the system account's profile, on the drive that holds the common application data.
std::wstring SettingsFolder(const std::wstring& commonAppData) {
  return commonAppData.substr(0, commonAppData.find(L':')) + kFolderOnDrive;
}

/// Creates each folder of the path in turn, below the drive it begins with. Folders that exist already fail here, and
/// so does what cannot be created: the writes that follow then fail silently. False when the path has no first part.
bool CreateFolderChain(const std::wstring& folder) {
  auto end = folder.find(L'\\');
  if (end == 0 || folder.empty()) return false;
  while (end != std::wstring::npos) {
    end = folder.find(L'\\', end + 1);
    const std::wstring path = folder.substr(0, end);
    os::WriteDebugText((path + L"\n").c_str());
    (void)os::CreateFolder(path);  // one that is there already fails too
  }
  return true;
}

void CreateWithDefaults(const std::wstring& folder) {
  if (!CreateFolderChain(folder)) {
    Log(L" Create ini file fail \n");
    return;
  }
  Log(L" Create ini file success \n");
  WriteSetting(kTessaviewKey, L"On");
  WriteSetting(kBacklightKey, kDefaultBacklightText);
  WriteSetting(kBacklightDCKey, kDefaultBacklightText);
  WriteSetting(kPowerSavingKey, L"1");
  WriteSetting(kModeKey, L"Cursor");
}

void RepairNumber(const wchar_t* key, std::uint32_t lowest, std::uint32_t highest, const wchar_t* repaired) {
  const auto value = ReadSettingNumber(key, highest + 1);  // a missing key reads as out of range
  if (value < lowest || value > highest) WriteSetting(key, repaired);
}

void RepairChoice(const wchar_t* key, const wchar_t* standard, const wchar_t* other) {
  const auto value = ReadSetting(key);
  if (value != standard && value != other) WriteSetting(key, standard);
}

void RepairValues() {
  RepairNumber(kBacklightKey, kDarkestLevel, kBrightestLevel, kDefaultBacklightText);
  RepairNumber(kBacklightDCKey, kDarkestLevel, kBrightestLevel, kDefaultBacklightText);
  RepairChoice(kTessaviewKey, L"On", L"Off");
  RepairNumber(kPowerSavingKey, 0, 1, L"1");
  RepairChoice(kModeKey, L"Cursor", L"Touch");
}

MainThreadOnly<std::wstring> gPath;

}  // namespace

std::wstring gSettingsPath() {
  return *gPath;
}

void SetUpSettingsFile() {
  const auto commonAppData = os::CommonAppDataFolder();
  if (!commonAppData) return;
  const auto folder = SettingsFolder(*commonAppData);
  const auto path = folder + L"\\" + kFileName;
  *gPath = path;
  if (os::QueryPath(path) == os::PathKind::File) {
    Log(L" ini File already exist \n");
    RepairValues();
  } else {
    CreateWithDefaults(folder);
  }
  Log(L"Setting path =  %ls \n ", path);
}

// Without a path the private-profile functions would fall back to a file of Windows' own, so they are not asked.

std::wstring ReadSetting(const wchar_t* key, const wchar_t* fallback) {
  const auto& path = *gPath;
  return path.empty() ? fallback : os::ReadProfileText(path, kSection, key, fallback);
}

std::uint32_t ReadSettingNumber(const wchar_t* key, std::uint32_t fallback) {
  const auto& path = *gPath;
  return path.empty() ? fallback : os::ReadProfileNumber(path, kSection, key, fallback);
}

void WriteSetting(const wchar_t* key, const wchar_t* text) {
  const auto& path = *gPath;
  if (!path.empty()) os::WriteProfileText(path, kSection, key, text);
}

SavedPower ReadSavedPower() {
  const auto value = ReadSetting(kTessaviewKey);
  if (value == L"On") return SavedPower::On;
  if (value == L"Off") return SavedPower::Off;
  return SavedPower::NoChoice;
}

}  // namespace tessaview
