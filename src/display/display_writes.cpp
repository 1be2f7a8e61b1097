#include "display/display_writes.h"

#include "core/console.h"

namespace tessaview {
namespace {

constexpr std::int32_t kChangeFailed = -1;  // DISP_CHANGE_FAILED
constexpr std::int32_t kAccessDenied = 5;   // ERROR_ACCESS_DENIED

}  // namespace

std::int32_t ChangeDisplay(const std::wstring& gdiName, const os::DisplaySettings& settings) {
  if (!IsAtConsole()) return kChangeFailed;
  return os::ChangeDisplaySettings(gdiName, settings, os::kCdsUpdateRegistry | os::kCdsGlobal);
}

std::int32_t ChangeDisplays(const std::vector<os::DisplayPath>& paths, const std::vector<os::DisplayMode>& modes,
                            std::uint32_t flags) {
  return IsAtConsole() ? os::ChangeDisplayConfiguration(paths, modes, flags) : kAccessDenied;
}

}  // namespace tessaview
