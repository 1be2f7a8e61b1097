#include "power/hot_key_component.h"

#include "core/service_window.h"
#include "os/desktop.h"
#include "os/messages.h"

namespace tessaview {
namespace {

// `wParam` of the touch-pad status message.
constexpr std::uint64_t kTurnOn = 1, kSubscribe = 2;

void PostToComponent(std::uint64_t wParam, std::int64_t lParam) {
  const auto window = os::FindTopWindow(L"HCONTROL", L"HControl");
  if (window != os::WindowHandle::None) os::PostToWindow(window, TouchPadStatusMessage(), wParam, lParam);
}

}  // namespace

std::uint32_t HotKeyMessage() {
  return os::RegisterMessage(L"ACPI Notification through ZRVHotkey from BIOS");
}

std::uint32_t TouchPadStatusMessage() {
  return os::RegisterMessage(L"Touchpad status reported from ZRVHotkey");
}

void RequestTouchPadOn() {
  PostToComponent(kTurnOn, 1);
}

void SubscribeToTouchPadStatus() {
  PostToComponent(kSubscribe, static_cast<std::int64_t>(gServiceWindow()));
}

}  // namespace tessaview
