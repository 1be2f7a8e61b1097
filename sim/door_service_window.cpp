#include "os/service_window.h"
#include "sim/parts.h"
#include "sim/system_errors.h"

namespace os {
namespace {

using sim::Machine;

bool IsServiceWindow(WindowHandle window) {
  return window != WindowHandle::None && window == Machine().window.Handle();
}

}  // namespace

std::wstring LoadResourceText(std::uint16_t id) {
  if (sim::Enter<&LoadResourceText>().failed()) return {};
  if (id == 103) return L"TessaviewServiceTitle";
  if (id == 109) return L"TESSAVIEWSERVICE";
  return {};
}

Status RegisterServiceWindowClass(const WindowClass& windowClass, const ServiceWindowEvents& events) {
  if (const auto call = sim::Enter<&RegisterServiceWindowClass>(); call.failed()) return Error{call.error()};
  return Machine().window.RegisterClass(windowClass, events);
}

Result<WindowHandle> CreateServiceWindow(const std::wstring& className, const std::wstring& title) {
  if (const auto call = sim::Enter<&CreateServiceWindow>(); call.failed()) return Error{call.error()};
  const auto window = Machine().window.Create(className, title);
  if (window == WindowHandle::None) return Error{sim::kCannotFindWindowClass};
  return window;
}

Status BecomePerMonitorDpiAware() {
  if (const auto call = sim::Enter<&BecomePerMonitorDpiAware>(); call.failed()) return Error{call.error()};
  Machine().window.SeeScalePerMonitor();
  return Done{};
}

void RefreshWindow(WindowHandle /*window*/) {
  sim::Enter<&RefreshWindow>();  // a window that is never shown has nothing to paint
}

Status AllowMessage(WindowHandle window, std::uint32_t message) {
  if (const auto call = sim::Enter<&AllowMessage>(); call.failed()) return Error{call.error()};
  if (!IsServiceWindow(window)) return Error{sim::kInvalidWindowHandle};
  Machine().window.Allow(message);
  return Done{};
}

void StartTimer(WindowHandle window, std::uint64_t id, std::uint32_t periodMs) {
  if (sim::Enter<&StartTimer>().failed() || !IsServiceWindow(window)) return;
  Machine().window.StartTimer(id, periodMs);
}

void StopTimer(WindowHandle window, std::uint64_t id) {
  if (sim::Enter<&StopTimer>().failed() || !IsServiceWindow(window)) return;
  Machine().window.StopTimer(id);
}

Result<PowerNotification> RegisterPowerSetting(WindowHandle window, PowerSetting setting) {
  if (const auto call = sim::Enter<&RegisterPowerSetting>(); call.failed()) return Error{call.error()};
  if (!IsServiceWindow(window)) return Error{sim::kInvalidWindowHandle};
  return Machine().power.Register(setting);
}

void UnregisterPowerSetting(PowerNotification notification) {
  sim::Enter<&UnregisterPowerSetting>();
  Machine().power.Unregister(notification);
}

Status RegisterSessionEvents(WindowHandle window) {
  if (const auto call = sim::Enter<&RegisterSessionEvents>(); call.failed()) return Error{call.error()};
  if (!IsServiceWindow(window)) return Error{sim::kInvalidWindowHandle};
  Machine().window.HearOfSessions(true);
  return Done{};
}

void UnregisterSessionEvents(WindowHandle /*window*/) {
  sim::Enter<&UnregisterSessionEvents>();
  Machine().window.HearOfSessions(false);
}

int RunMessageLoop(WindowHandle /*window*/, std::uint16_t /*accelerators*/) {
  sim::Enter<&RunMessageLoop>();
  return Machine().window.RunLoop();
}

void QuitMessageLoop(int code) {
  sim::Enter<&QuitMessageLoop>();
  Machine().loops.Quit(code);
}

void DestroyServiceWindow(WindowHandle window) {
  sim::Enter<&DestroyServiceWindow>();
  Machine().window.Close(window);
}

void ShowDialog(WindowHandle /*owner*/, std::uint16_t id) {
  if (!sim::Enter<&ShowDialog>().failed()) Machine().window.ShowDialog(id);
}

}  // namespace os
