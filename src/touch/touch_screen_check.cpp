#include "touch/touch_screen_check.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

#include "core/log_failure.h"
#include "core/state.h"
#include "core/text.h"
#include "core/trace_log.h"
#include "os/hid.h"
#include "touch/hid_usages.h"

namespace tessaview {
namespace {

/// In the path of each of the controller's collections, in either case.
constexpr const wchar_t* kController = L"VEN_GDX&DEV_1515";

bool IsControllers(const os::HidInterface& listed) {
  return UpperCased(listed.path).find(kController) != std::wstring::npos;
}

std::optional<os::HidCapabilities> Read(const os::HidInterface& listed) {
  const auto device = os::OpenHid(listed.path);
  LogFailure(L"A collection of the touch controller cannot be opened", device);
  return device ? os::QueryHidCapabilities(*device) : std::nullopt;
}

/// A collection that cannot be read may well be the touch screen.
bool MayBeTouchScreen(const os::HidInterface& listed) {
  const auto capabilities = Read(listed);
  return !capabilities || (capabilities->usagePage == kDigitizerPage && capabilities->usage == kUsageTouchScreen);
}

bool IsTouchScreenMissing(const std::vector<os::HidInterface>& interfaces) {
  const auto isUnread = [](const os::HidInterface& listed) { return listed.detail != os::HidInterface::Detail::Read; };
  if (std::any_of(interfaces.begin(), interfaces.end(), isUnread)) return false;
  std::vector<os::HidInterface> ours;
  std::copy_if(interfaces.begin(), interfaces.end(), std::back_inserter(ours), IsControllers);
  return !ours.empty() && std::none_of(ours.begin(), ours.end(), MayBeTouchScreen);
}

Shared<bool> gIsWrong;

}  // namespace

bool gTouchScreenHidWrong() {
  return gIsWrong.get();
}

void CheckTouchScreenHid() {
  const auto interfaces = os::HidInterfaces();
  const bool isWrong = interfaces && IsTouchScreenMissing(*interfaces);
  gIsWrong.set(isWrong);
  Log(L"[CheckTouchScreenHid] TouchScreen HID wrong = %d \n", isWrong);
}

}  // namespace tessaview
