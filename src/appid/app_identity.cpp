#include "appid/app_identity.h"

#include "core/trace_log.h"
#include "os/desktop.h"
#include "os/processes.h"

namespace tessaview {
namespace {

std::wstring AppUserModelIdOf(const os::ProcessPackage& package) {
  if (package.appUserModelId) return *package.appUserModelId;
  const auto error = package.appUserModelId.error();
  if (error != os::kNoApplication) Log(L"Error %d retrieving ApplicationUserModelId", error);
  return {};
}

void LogPackage(const AppIdentity& identity) {
  Log(L"AUMID = %ls", identity.appUserModelId);
  Log(L"PackageFullName = %ls", identity.packageFullName);
  Log(L"PackageFamilyName = %ls", identity.packageFamilyName);
  Log(L"PackagePath = %ls", identity.packagePath);
}

}  // namespace

AppIdentity GetExePathandAUMIDbyHWND(os::WindowHandle window) {
  const auto processId = os::WindowProcessId(window);
  AppIdentity identity{.executablePath = os::ProcessImagePath(processId)};
  if (const auto package = os::QueryProcessPackage(processId)) {
    identity.appUserModelId = AppUserModelIdOf(*package);
    identity.packageFullName = package->fullName;
    identity.packageFamilyName = package->familyName;
    identity.packagePath = package->path;
  }
  if (!identity.appUserModelId.empty()) LogPackage(identity);
  return identity;
}

}  // namespace tessaview
