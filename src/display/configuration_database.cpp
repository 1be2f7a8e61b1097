#include "display/configuration_database.h"

#include "core/console.h"
#include "os/registry.h"

namespace tessaview {

std::wstring FindStoredConfiguration(const std::wstring& text) {
  for (auto& name : os::RegistrySubkeys(kConfigurationDatabase)) {
    if (name.find(text) != std::wstring::npos) return name;
  }
  return {};
}

void StampStoredConfiguration(const std::wstring& name, std::uint64_t fileTime) {
  if (name.empty() || !IsAtConsole()) return;  // no name would open the database's own key
  // A stamp that cannot be written leaves the choice to the system, as without the controller.
  (void)os::WriteRegistryLongNumber(std::wstring(kConfigurationDatabase) + L"\\" + name, L"Timestamp", fileTime);
}

}  // namespace tessaview
