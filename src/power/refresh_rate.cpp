#include "power/refresh_rate.h"

#include <optional>

#include "core/console.h"
#include "core/state.h"
#include "core/trace_log.h"
#include "os/processes.h"
#include "power/firmware.h"

namespace tessaview {
namespace {

constexpr const wchar_t* kVariable = L"VantyraFPS";
constexpr const wchar_t* kVariableNamespace = L"{F8165EB8-0081-48A9-BD1D-1741D6CC6154}";

struct RateSetting {
  std::uint32_t firmwareValue;
  std::uint8_t variable;
};

RateSetting SettingFor(std::int32_t hertz) {
  if (hertz == 30) return {0, 0};
  return {1, 1};  // 60, also for a rate that does not exist
}

/// Writing firmware variables takes a privilege that even the system account must switch on first. A failure is
/// logged, and the write is tried all the same.
void EnableFirmwareAccess() {
  const auto token = os::OwnToken();
  if (!token) {
    Log(L"[SetFPS] Failed OpenProcessToken \n");
    return;
  }
  if (!os::EnablePrivilege(*token, L"SeSystemEnvironmentPrivilege")) Log(L"[SetFPS] Failed RasiePrivileges() \n");
}

/// Asked for while the session was not at the console.
MainThreadOnly<std::optional<std::int32_t>> gOwedRate;

}  // namespace

void SetOwedRefreshRate() {
  if (const auto hertz = *gOwedRate) SetPanelRefreshRate(*hertz);
}

void SetPanelRefreshRate(std::int32_t hertz) {
  *gOwedRate = IsAtConsole() ? std::nullopt : std::optional(hertz);
  if (*gOwedRate) return;
  const auto setting = SettingFor(hertz);
  const FirmwareSequence firmware;
  if (!firmware) return;
  Log(L"[SetFPS] Ready to call WMI Method \n");
  if (!FirmwareDEVS(firmware, FirmwareId::RefreshRate, setting.firmwareValue)) {
    Log(L"[SetFPS] WMI Method Fail \n");
    return;
  }
  Log(L"[SetFPS] SetFPS_Value = %d \n", setting.firmwareValue);

  EnableFirmwareAccess();
  const std::uint8_t value[] = {setting.variable};
  if (os::WriteFirmwareVariable(kVariable, kVariableNamespace, value)) {
    Log(L"Success!! SetFirmwareEnvironmentVariable \n");
  } else {
    Log(L"Failed!! SetFirmwareEnvironmentVariable \n");
  }
}

}  // namespace tessaview
